#pragma once

#include <memory>
#include <string>

#include "qvsata/service/ProviderHost.h"

namespace qv::service {

// The choice of a provider, made when the program is linked: each function has one definition in
// each of the libraries that run a provider, and a program links one of them. On Windows that is
// qv_hosting (hosting/ManagementHost.cpp), which runs the library in an embedded management
// service; elsewhere qv_linked (linked/LinkedHost.cpp), which contains the provider's core.

/// Starts the provider. Throws MofError, std::system_error if the library cannot be loaded,
/// otherwise RequestError with the status of the failed step.
std::unique_ptr<ProviderHost> StartProvider(const HostOptions& options);

/// Returns why this program cannot start a provider with these options, as the rest of an error
/// line ("--live needs ..."); empty if it can.
std::string WhyNotStarted(const HostOptions& options);

}  // namespace qv::service
