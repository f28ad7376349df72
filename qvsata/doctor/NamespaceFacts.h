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

/// Compares what the installed provider publishes with what the same library does that this program
/// hosts. The line of a class that differs names the first instance and property.
AnswerFacts CompareAnswers(const service::Services& installed, const service::Services& hosted);

}  // namespace qv::doctor
