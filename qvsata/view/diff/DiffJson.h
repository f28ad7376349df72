#pragma once

#include "nlohmann/json.hpp"
#include "qvsata/view/diff/HostDiff.h"

namespace qv::view {

/// Returns all differences, each with its values, and the events.
nlohmann::ordered_json DiffAsJson(const HostDiff& diff);

}  // namespace qv::view
