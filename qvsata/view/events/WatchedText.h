#pragma once

#include <string>
#include <vector>

#include "qvsata/view/OsDisk.h"

namespace qv::view {

/// Returns the lines with which a watch begins: how many disks are watched, each other disk with
/// the reason, and each disk that is not OK already.
std::string WatchedText(const std::vector<OsDisk>& disks);

}  // namespace qv::view
