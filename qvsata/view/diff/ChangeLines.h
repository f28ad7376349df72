#pragma once

#include <string>
#include <vector>

#include "qvsata/view/diff/Differences.h"

namespace qv::view {

/// Returns what people call a member of a disk or of an instance: "serial number".
std::string LabelOf(const std::string& member);

/// Returns a line for each change, unless another one says it already: "status: OK → Degraded", but
/// no code of the status. Without line feeds.
std::vector<std::string> LinesOf(const std::vector<MemberChange>& changes);

}  // namespace qv::view
