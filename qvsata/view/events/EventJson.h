#pragma once

#include "nlohmann/json.hpp"
#include "qvsata/view/events/DiskEvent.h"

namespace qv::view {

/// Returns what the event says of the disk: severity, sentence, host, drive number, serial number,
/// old and new status as code and word.
nlohmann::ordered_json EventAsJson(const DiskEvent& event);

}  // namespace qv::view
