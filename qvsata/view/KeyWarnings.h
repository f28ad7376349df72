#pragma once

#include <string>
#include <vector>

#include "qvsata/view/OsDisk.h"

namespace qv::view {

/// Returns a line for each pair of published disks whose plug-and-play IDs are equal, or of which
/// one is part of the other: keys and associations of the published instances do not tell such
/// disks apart. Returns a line, too, for each published disk without such an ID.
std::string KeyWarnings(const std::vector<OsDisk>& disks);

/// Returns the same lines, without "warning: ".
std::vector<std::string> KeyWarningLines(const std::vector<OsDisk>& disks);

/// Returns a line for each pair of published disks with one serial number, and for each published
/// disk without one.
std::vector<std::string> SerialNumberWarnings(const std::vector<OsDisk>& disks);

}  // namespace qv::view
