#pragma once

#include <functional>
#include <string>
#include <vector>

#include "qvsata/service/Namespace.h"

namespace qv::capture {

/// Returns what a provider publishes, an object per line: its class, its properties, and for a
/// reference the class and the number of the object that it names. Two recordings have the same
/// shape if the lines are the same.
/// @param map is applied to each text that is no reference
std::vector<std::string> ShapeOf(const service::Namespace& published,
                                 const std::function<std::string(const std::string&)>& map);

}  // namespace qv::capture
