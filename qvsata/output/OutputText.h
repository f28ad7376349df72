#pragma once

#include <string>

#include "qvsata/cim/Object.h"

namespace qv::tool {

/// Returns objects as readable text, see FormatObjects; "(none)" if there are no objects.
std::string ObjectsAsText(const service::ObjectList& objects);

}  // namespace qv::tool
