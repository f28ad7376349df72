#pragma once

#include <span>
#include <string>

#include "qvsata/service/ClassRepository.h"
#include "qvsata/service/MofParser.h"

namespace qv::service {

/// What a repository lacks of the classes that a file declares: classes, properties of classes, and
/// Abstract on classes that are concrete in the repository. "CIM_A, CIM_B.Name, Abstract of CIM_C";
/// empty when nothing is missing.
std::string SchemaGaps(std::span<const MofDeclaration> declarations,
                       const ClassRepository& classes);

}  // namespace qv::service
