#pragma once

#include <vector>

#include "qvsata/cim/ClassDefinition.h"

namespace qv::service {

/// The management service's own classes that a provider or its registration meets, as the service
/// documents them, each below its superclass.
std::vector<ClassDefinition> SystemClasses();

}  // namespace qv::service
