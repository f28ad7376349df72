#pragma once

#include <string>

#include "qvsata/report/Html.h"
#include "qvsata/report/TopologyList.h"

namespace qv::report {

/// Draws an item and its parts as a tree of boxes, one below the other, as wide as a phone.
/// @param id of the picture's title
void WriteTopologySvg(Html& html, const TopologyItem& computer, const std::string& id);

}  // namespace qv::report
