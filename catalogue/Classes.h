#pragma once

#include <cstddef>
#include <span>

#include "NativeAPI/ClassCatalogue.h"

namespace qv {

/// How many of the published classes, the first ones, are instance classes; the others are
/// associations.
extern const std::size_t instanceClassCount;

/// The published classes in the order in which a requested name is compared with theirs.
std::span<const PublishedClass> PublishedClasses();

}  // namespace qv
