#pragma once

#include <wbemcli.h>
#include <windows.h>

#include <string_view>

#include "platform/windows/Variant.h"
#include "source/PropertyTarget.h"

namespace qv::provider {

/// Converts the typed value of a record's entry. A reference becomes `namespacePrefix`
/// (\\server\namespace:), unchanged, followed by the entry's text. An array without elements
/// becomes VT_NULL. Returns WBEM_E_INVALID_CIM_TYPE for a type that is not published. Throws
/// RequestError with Status::outOfMemory if memory runs out.
HRESULT ToVariant(const PropertyEntry& entry, std::wstring_view namespacePrefix,
                  windows::Variant& value);

/// An instance of the management service. Each operation throws as ToVariant does.
class InstanceTarget final : public PropertyTarget {
public:
    /// Both must outlive the object.
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
