#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "qvsata/mof/MofClassRules.h"

namespace qv::service {

/// Returns the property of that name, ignoring case; null if there is none.
const PropertyDefinition* FindDefinition(const std::vector<PropertyDefinition>& properties,
                                         std::string_view name);

/// Returns the property's type as MOF writes it, e.g. "uint16[]".
std::string TypeText(const PropertyDefinition& property);

/// Returns the first rule that a property of a class breaks, by itself or against what the class
/// inherits from `parent`, null for a root class. The target class of a reference is not checked:
/// it may be defined later.
std::optional<ClassBreach> FindPropertyBreach(const ClassDefinition& definition,
                                              const DefinedClass* parent);

}  // namespace qv::service
