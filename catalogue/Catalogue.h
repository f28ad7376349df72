#pragma once

#include "NativeAPI/ClassCatalogue.h"

namespace qv {

/// The catalogue of PublishedClasses and ClassHierarchy. It lasts as long as the program.
const ClassCatalogue& PublishedCatalogue();

}  // namespace qv
