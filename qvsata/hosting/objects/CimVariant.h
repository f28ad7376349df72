#pragma once

#include <windows.h>

#include <oleauto.h>

#include "qvsata/cim/CimValue.h"

namespace qv::service {

/// Returns the VARIANT type in which the management service delivers a CIM type: VT_I4 for uint16
/// and uint32, VT_I2 for sint8, decimal text for 64-bit numbers.
VARTYPE VariantTypeOf(CimType type, bool isArray);

/// Returns the number of a type, with the array flag, as IWbemClassObject reports it.
long CimTypeNumber(CimType type, bool isArray);

/// Writes a value as the management service delivers it; `out` must be empty. A value that does not
/// belong to the type becomes VT_NULL. Throws RequestError if memory runs out.
void WriteVariant(const CimValue& value, CimType type, VARIANT& out);

}  // namespace qv::service
