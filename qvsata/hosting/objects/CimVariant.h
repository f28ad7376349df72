#pragma once

#include <windows.h>

#include <oleauto.h>

#include "qvsata/cim/VariantType.h"

namespace qv::service {

/// Returns the number of a type, with the array flag, as IWbemClassObject reports it.
long CimTypeNumber(CimType type, bool isArray);

/// Writes a value as the management service delivers it; `out` must be empty. A value that does not
/// belong to the type becomes VT_NULL. Throws RequestError if memory runs out.
void WriteVariant(const CimValue& value, CimType type, VARIANT& out);

}  // namespace qv::service
