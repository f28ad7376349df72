#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "qvsata/service/MofClassRules.h"

namespace qv::service {

/// The property of that name, taken without regard to case; null when there is none.
const PropertyDefinition* FindDefinition(const std::vector<PropertyDefinition>& properties,
                                         std::string_view name);

/// "uint16[]"
std::string TypeText(const PropertyDefinition& property);

/// The first rule that a property of a class breaks, by itself or against what the class inherits.
/// What a reference points to is not looked at: it may be defined later.
std::optional<ClassBreach> FindPropertyBreach(const ClassDefinition& definition,
                                              const std::vector<PropertyDefinition>& inherited);

}  // namespace qv::service
