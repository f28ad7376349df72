#pragma once

#include <vector>

#include "qvsata/cim/ClassDefinition.h"

namespace qv::service {

/// Returns the management service's own classes that a provider or its registration meets, as
/// documented. Each superclass comes before its subclasses.
std::vector<ClassDefinition> SystemClasses();

}  // namespace qv::service
