#pragma once

#include <string>
#include <string_view>

#include "qvsata/cim/Object.h"
#include "qvsata/cim/ResolvedClass.h"

namespace qv::service {

/// Returns a value in MOF notation: texts quoted, arrays in braces, NULL for no value.
std::string MofValueText(const CimValue& value);

/// Returns an instance as `instance of Class { ... };` with one line per property that has a value
/// (a null in place of the class's default is left out); a class definition as ClassAsMof does.
std::string ObjectAsMof(const Object& object);

/// Returns a class in MOF, with the properties that it declares itself and the qualifiers of both.
std::string ClassAsMof(const ResolvedClass& definition);

}  // namespace qv::service
