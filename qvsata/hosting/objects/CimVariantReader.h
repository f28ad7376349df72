#pragma once

#include <windows.h>

#include <oleauto.h>

#include <optional>

#include "qvsata/cim/PutRules.h"

namespace qv::service {

/// Reads a VARIANT: whole numbers of up to 32 bits become numbers, wider ones decimal text. Returns
/// nothing for content that a CimValue cannot hold (objects, arrays of more than one dimension).
std::optional<CimValue> ReadVariant(const VARIANT& variant);

/// Reads a VARIANT of a known CIM type.
std::optional<CimValue> ReadVariant(const VARIANT& variant, CimType type);

/// Reads a VARIANT that is passed to Put.
PutValue ReadPut(const VARIANT& variant);

}  // namespace qv::service
