#pragma once

#include <windows.h>

#include <oleauto.h>

#include <optional>

#include "qvsata/cim/CimValue.h"

namespace qv::service {

/// Reads a VARIANT: whole numbers of up to 32 bits become numbers, wider ones decimal text. Returns
/// nothing for content that a CimValue cannot hold (objects, arrays of more than one dimension).
std::optional<CimValue> ReadVariant(const VARIANT& variant);

/// Reads a VARIANT of a known CIM type: restores a uint32 above 0x7FFFFFFF, which is passed as a
/// negative VT_I4.
std::optional<CimValue> ReadVariant(const VARIANT& variant, CimType type);

}  // namespace qv::service
