#pragma once

#include "nlohmann/json.hpp"
#include "qvsata/view/OsDisk.h"

namespace qv::view {

/// Returns a disk of the operating system as docs/JSON.md describes it: the members of `disks`.
nlohmann::ordered_json OsDiskAsJson(const OsDisk& disk);

}  // namespace qv::view
