#pragma once

#include <wbemcli.h>
#include <windows.h>

#include <string_view>

#include "platform/windows/Variant.h"
#include "source/InstanceRecord.h"

namespace qv::windows {

/// The typed value of a record's entry, references behind `namespacePrefix`. An array without
/// elements gives VT_NULL. Gives WBEM_E_INVALID_CIM_TYPE for a type that is not published; raises
/// RequestError with Status::outOfMemory when there is no room.
HRESULT ToVariant(const PropertyEntry& entry, std::string_view namespacePrefix, Variant& value);

/// Puts the record's entries, in their order, on a spawned instance. An entry that the instance
/// refuses (a property that its class does not define, a value of the wrong type) is dropped, on
/// purpose. Gives WBEM_S_NO_ERROR, or WBEM_E_FAILED for a record without properties.
HRESULT FillInstance(IWbemClassObject& instance, const InstanceRecord& record,
                     std::string_view namespacePrefix);

}  // namespace qv::windows
