#pragma once

#include <string>

#include "qvsata/cim/Object.h"

namespace qv::tool {

/// Returns objects as readable text: a block for each, with its relative path and an aligned line
/// for each property that has a value; "(none)" if there are no objects.
std::string ObjectsAsText(const service::ObjectList& objects);

}  // namespace qv::tool
