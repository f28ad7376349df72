#pragma once

#include <span>

#include "NativeAPI/ClassCatalogue.h"

namespace qv {

/// Returns the published classes: the instance classes, then the associations. A requested name is
/// compared in this order.
std::span<const PublishedClass> PublishedClasses();

}  // namespace qv
