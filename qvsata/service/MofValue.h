#pragma once

#include <optional>

#include "qvsata/service/CimValue.h"
#include "qvsata/service/MofParser.h"

namespace qv::service {

/// What is written, as a value of a type; empty when it is no value of that type: a number out of
/// the type's range, a text where a number belongs, a date that is none, an array for a scalar, a
/// null within an array. `null` itself is a value of every type. An alias is no value here.
std::optional<CimValue> ToCimValue(const MofInitializer& written, CimType type, bool isArray);

/// The status that the compiler ends with when ToCimValue is empty.
const MofStatus& ValueStatus(const MofInitializer& written, CimType type, bool isArray);

/// The value of a qualifier, whose type is what it is written as; TRUE when nothing is written.
/// Empty for an array of different types, or a whole number outside std::int64_t.
std::optional<CimValue> QualifierValue(const std::optional<MofInitializer>& written);

}  // namespace qv::service
