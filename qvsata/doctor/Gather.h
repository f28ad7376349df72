#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "qvsata/doctor/Facts.h"
#include "qvsata/service/Services.h"

namespace qv::doctor {

// What only Windows knows. Chosen when the program is linked.

/// Looks at this machine's registry, files and logs: sets classes, library, logs and
/// settings. Returns nothing on a system without a management service.
std::optional<Facts> ReadMachine();

/// Connects to the machine's own management service.
service::Connection ConnectInstalled(std::string_view nameSpace);

/// Returns what a security descriptor allows and denies, in the self-relative form in which the
/// management service returns it.
Fact<std::vector<Right>> RightsOf(std::string_view descriptor);

}  // namespace qv::doctor
