#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "qvsata/commands/Options.h"
#include "qvsata/service/ProviderHost.h"

namespace qv::tool {

/// An error that ends a command. The message is one line, without the program's name.
class CommandError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Starts the provider on the machine that the options name. Throws CommandError, HostFileError,
/// MofError or std::system_error; the messages of the last three name the file.
std::unique_ptr<service::ProviderHost> StartSession(const Options& options);

/// Returns the answer's objects; throws CommandError if the answer is a failure.
service::ObjectList Take(service::Answer answer);

}  // namespace qv::tool
