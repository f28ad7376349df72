#pragma once

#include <windows.h>

#include <oleauto.h>

#include "qvsata/cim/CimValue.h"

namespace qv::service {

/// Converts a VARIANT that is put on a property, by the rules documented for IWbemClassObject::Put:
/// - the property's own VARIANT type (VariantTypeOf) is stored; VT_NULL makes the property null;
/// - another type is converted as VARIANTs are, but a whole number is not widened (VT_I2 on uint32
///   is refused) and arrays are not converted;
/// - VT_ARRAY|VT_VARIANT without an element is an empty array of any type.
///
/// Where the documentation leaves it open, a value that does not fit is refused: a number outside
/// the property's range, a scalar on an array, an ill-formed date, a 64-bit number that is not
/// decimal.
/// @returns WBEM_S_NO_ERROR with `stored` set, or WBEM_E_TYPE_MISMATCH.
HRESULT ConvertForPut(const VARIANT& put, CimType type, bool isArray, CimValue& stored);

}  // namespace qv::service
