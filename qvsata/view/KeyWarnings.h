#pragma once

#include <string>
#include <vector>

#include "qvsata/view/OsDisk.h"

namespace qv::view {

/// Returns a line for the published disks of each plug-and-play ID that several have, for those
/// whose ID is part of that of others, and for those without one: keys and associations of the
/// published instances do not tell such disks apart.
std::string KeyWarnings(const std::vector<OsDisk>& disks);

/// Returns the same lines, without "warning: ".
std::vector<std::string> KeyWarningLines(const std::vector<OsDisk>& disks);

/// Returns a line for the published disks of each serial number that several have, and for those
/// without one.
std::vector<std::string> SerialNumberWarnings(const std::vector<OsDisk>& disks);

}  // namespace qv::view
