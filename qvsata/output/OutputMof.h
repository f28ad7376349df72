#pragma once

#include <string>

#include "qvsata/cim/Object.h"

namespace qv::tool {

/// Returns objects as MOF, an instance or a class for each.
std::string ObjectsAsMof(const service::ObjectList& objects);

}  // namespace qv::tool
