#pragma once

#include <span>
#include <string>
#include <string_view>

#include "qvsata/service/com/ReadableObject.h"
#include "qvsata/service/com/ResolvedClass.h"

namespace qv::service {

/// A value as MOF writes it: texts quoted, arrays in braces, NULL for no value.
std::string MofValueText(const CimValue& value);

/// `instance of Class { ... };` with one line for each property that has a value.
std::string InstanceMof(std::string_view className, std::span<const ObjectProperty> properties);

/// The class with the properties that it declares itself, and the qualifiers of both.
std::string ClassMof(const ResolvedClass& definition);

}  // namespace qv::service
