#pragma once

#include <string_view>
#include <vector>

#include "qvsata/mof/MofParser.h"
#include "qvsata/mof/MofReferences.h"

namespace qv::service {

/// Applies the declarations of one file, in order, to the namespaces. Appends the references that
/// it declares to `references`; they are checked when every file is read.
/// @throws MofError on the first error; the declarations before it have been applied.
void ApplyMof(const std::vector<MofDeclaration>& declarations, std::string_view fileName,
              Namespaces& namespaces, std::vector<PendingReference>& references);

}  // namespace qv::service
