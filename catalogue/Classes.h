#pragma once

#include <cstddef>
#include <span>

#include "NativeAPI/ClassCatalogue.h"

namespace qv {

/// The number of instance classes. They come first in the list; the others are associations.
extern const std::size_t instanceClassCount;

/// Returns the published classes. A requested name is compared in this order.
std::span<const PublishedClass> PublishedClasses();

}  // namespace qv
