#pragma once

#include "qvsata/cim/CimValue.h"

namespace qv::service {

/// Returns whether a value in the form of a type is a valid value of it: a number in range, a
/// 64-bit number in decimal, a well-formed date. An array is valid if each element is.
bool IsValueOf(const CimValue& value, CimType type);

/// Returns the value of a property from the content of its VARIANT: restores a uint32 above
/// 0x7FFFFFFF, which is passed as a negative 32-bit number.
CimValue FromVariantContent(CimValue value, CimType type);

}  // namespace qv::service
