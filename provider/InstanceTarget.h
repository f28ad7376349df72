#pragma once

#include <wbemcli.h>
#include <windows.h>

#include <string_view>

#include "platform/windows/Variant.h"
#include "source/PropertyTarget.h"

namespace qv::provider {

/// Stores the typed value of a record's entry. A reference is `namespacePrefix`
/// (\\server\namespace:), as it stands, and the entry's text. An array without elements is VT_NULL.
/// Returns WBEM_E_INVALID_CIM_TYPE for a type that is not published. Raises RequestError with
/// Status::outOfMemory when there is no room.
HRESULT ToVariant(const PropertyEntry& entry, std::wstring_view namespacePrefix,
                  windows::Variant& value);

/// An instance of the management service. Each operation raises as ToVariant does.
class InstanceTarget final : public PropertyTarget {
public:
    /// Both outlive the object.
    InstanceTarget(IWbemClassObject& instance, std::wstring_view namespacePrefix)
        : instance_(instance), namespacePrefix_(namespacePrefix) {}

    Status Put(const PropertyEntry& property) override;
    Status PutWideText(std::string_view name, std::wstring_view text) override;

private:
    Status Put(std::string_view name, windows::Variant& value);

    IWbemClassObject& instance_;
    std::wstring_view namespacePrefix_;
};

}  // namespace qv::provider
