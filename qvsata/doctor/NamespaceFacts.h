#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "qvsata/doctor/Facts.h"
#include "qvsata/service/ProviderHost.h"

namespace qv::doctor {

/// Reads the shipped definitions and registrations from their folder. Throws MofError.
std::shared_ptr<const service::PublishedClasses> ReadShipped(
    const std::filesystem::path& mofFolder);

/// Compares the provider's namespace as the machine's management service has it with the shipped
/// definitions and registrations: sets classGaps and providers.
void ReadNamespace(const service::Services& installed, const service::PublishedClasses& shipped,
                   Facts& facts);

/// Returns what the installed provider publishes otherwise than the same library that this program
/// hosts: a line for each class that differs, with the first instance and property. A class that
/// the hosted library cannot publish either is skipped.
std::vector<std::string> CompareAnswers(const service::Services& installed,
                                        const service::Services& hosted);

}  // namespace qv::doctor
