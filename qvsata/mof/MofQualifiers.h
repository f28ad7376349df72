#pragma once

#include <string_view>
#include <vector>

#include "qvsata/cim/ClassDefinition.h"
#include "qvsata/mof/MofParser.h"

namespace qv::service {

/// The owner of a list of qualifiers.
enum class QualifierOwner { classOrProperty, instance };

/// Converts the qualifiers of a class, a property or an instance. docs/MOF-RULES.md lists the rules
/// that they must keep.
/// @throws MofError on the first qualifier that breaks one.
std::vector<Qualifier> ReadQualifiers(const std::vector<MofQualifier>& written,
                                      QualifierOwner owner, std::string_view fileName);

}  // namespace qv::service
