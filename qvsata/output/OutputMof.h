#pragma once

#include <string>

#include "qvsata/cim/Object.h"

namespace qv::tool {

/// Objects as MOF, see FormatObjects.
std::string ObjectsAsMof(const service::ObjectList& objects);

}  // namespace qv::tool
