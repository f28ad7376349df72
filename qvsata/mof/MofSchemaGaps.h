#pragma once

#include <span>
#include <string>

#include "qvsata/cim/ClassRepository.h"
#include "qvsata/mof/MofParser.h"

namespace qv::service {

/// Returns what a repository lacks of the classes that a file declares: classes, properties, and
/// Abstract on classes that are concrete in the repository. Example: "CIM_A, CIM_B.Name, Abstract
/// of CIM_C". Empty if nothing is missing.
std::string SchemaGaps(std::span<const MofDeclaration> declarations,
                       const ClassRepository& classes);

}  // namespace qv::service
