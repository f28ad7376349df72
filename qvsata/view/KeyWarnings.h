#pragma once

#include <string>
#include <vector>

#include "qvsata/view/OsDisk.h"

namespace qv::view {

/// Returns a line for each plug-and-play ID that several published disks have, and one for each
/// that is part of the IDs of others: keys and associations of the published instances do not tell
/// such disks apart. A line names at most eight disks of each kind. Returns a line, too, for each
/// published disk without such an ID.
std::string KeyWarnings(const std::vector<OsDisk>& disks);

/// Returns the same lines, without "warning: ".
std::vector<std::string> KeyWarningLines(const std::vector<OsDisk>& disks);

/// Returns a line for each published disk without a serial number, and for each serial number that
/// several have.
std::vector<std::string> SerialNumberWarnings(const std::vector<OsDisk>& disks);

}  // namespace qv::view
