#pragma once

#include <windows.h>

#include <oleauto.h>

#include <optional>

#include "qvsata/cim/CimValue.h"

namespace qv::service {

/// What a VARIANT holds: whole numbers of up to 32 bits as numbers, wider ones as decimal text.
/// Nothing for what a CimValue cannot hold (objects, arrays of more than one dimension).
std::optional<CimValue> ReadVariant(const VARIANT& variant);

/// The same for a value of a known type: a uint32 above 0x7FFFFFFF, which travels as a negative
/// VT_I4, is itself again.
std::optional<CimValue> ReadVariant(const VARIANT& variant, CimType type);

}  // namespace qv::service
