#pragma once

#include <string_view>
#include <vector>

#include "qvsata/service/MofParser.h"
#include "qvsata/service/MofReferences.h"

namespace qv::service {

/// Applies the declarations of one file, in order, to the namespaces; adds the references that it
/// declares to `references`, to be checked when every file is read.
/// @throws MofError on the first error; what came before it has been applied.
void ApplyMof(const std::vector<MofDeclaration>& declarations, std::string_view fileName,
              Namespaces& namespaces, std::vector<PendingReference>& references);

}  // namespace qv::service
