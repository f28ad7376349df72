#pragma once

#include <windows.h>

#include <oleauto.h>

#include "qvsata/cim/CimValue.h"

namespace qv::service {

/// The VARIANT type in which the management service delivers a CIM type: uint16 and uint32 come as
/// VT_I4, sint8 as VT_I2, 64-bit numbers as decimal text.
VARTYPE VariantTypeOf(CimType type, bool isArray);

/// The number of a type with the mark of an array, as IWbemClassObject gives it.
long CimTypeNumber(CimType type, bool isArray);

/// Writes a value as the management service delivers it; `out` is empty before. A value that is no
/// value of the type becomes VT_NULL. Raises RequestError when there is no room.
void WriteVariant(const CimValue& value, CimType type, VARIANT& out);

}  // namespace qv::service
