#pragma once

#include "qvsata/cim/CimValue.h"

namespace qv::service {

/// Whether a value that has the form of a type is one of its values: a number within its range, a
/// 64-bit number in decimal, a well-formed date. An array is when each of its elements is.
bool IsValueOf(const CimValue& value, CimType type);

}  // namespace qv::service
