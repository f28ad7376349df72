#pragma once

#include <wbemcli.h>
#include <windows.h>

#include <string_view>

#include "platform/windows/Variant.h"
#include "source/InstanceRecord.h"

namespace qv::windows {

/// Stores the typed value of a record's entry. A reference is `namespacePrefix`
/// (\\server\namespace:), as it stands, and the entry's text. An array without elements is VT_NULL.
/// Returns WBEM_E_INVALID_CIM_TYPE for a type that is not published. Raises RequestError with
/// Status::outOfMemory when there is no room.
HRESULT ToVariant(const PropertyEntry& entry, std::wstring_view namespacePrefix, Variant& value);

/// Puts the record's entries, in their order, on a spawned instance. An entry that the instance
/// refuses (a property that its class does not define, a value of the wrong type) is dropped, on
/// purpose. Gives WBEM_S_NO_ERROR, or WBEM_E_FAILED for a record without properties.
HRESULT FillInstance(IWbemClassObject& instance, const InstanceRecord& record,
                     std::wstring_view namespacePrefix);

}  // namespace qv::windows
