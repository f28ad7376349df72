#pragma once

#include <optional>

#include "qvsata/cim/CimValue.h"
#include "qvsata/mof/MofParser.h"

namespace qv::service {

/// Converts a written value to a type. Returns nothing if it is not a value of that type: a number
/// out of range, a text for a number, an invalid date, an array for a scalar or the reverse, a null
/// within an array, or an alias. `null` itself is a value of every type.
std::optional<CimValue> ToCimValue(const MofInitializer& written, CimType type, bool isArray);

/// Returns the status with which the compiler ends when ToCimValue returns nothing.
const MofStatus& ValueStatus(const MofInitializer& written, CimType type, bool isArray);

/// Returns the value of a qualifier in the type in which it is written; TRUE if none is written.
/// Returns nothing for an alias, an array of different types or a whole number outside
/// std::int64_t.
std::optional<CimValue> QualifierValue(const std::optional<MofInitializer>& written);

}  // namespace qv::service
