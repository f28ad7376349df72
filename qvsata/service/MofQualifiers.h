#pragma once

#include <string_view>
#include <vector>

#include "qvsata/service/ClassDefinition.h"
#include "qvsata/service/MofParser.h"

namespace qv::service {

/// What a list of qualifiers describes.
enum class QualifierOwner { classOrProperty, instance };

/// The qualifiers of a class, a property or an instance as they are written. docs/MOF-RULES.md
/// lists the rules that they have to keep.
/// @throws MofError on the first that breaks one.
std::vector<Qualifier> ReadQualifiers(const std::vector<MofQualifier>& written,
                                      QualifierOwner owner, std::string_view fileName);

}  // namespace qv::service
