#pragma once

#include <map>
#include <string>
#include <variant>
#include <vector>

#include "platform/windows/Bstr.h"
#include "qvsata/hosting/objects/UnsupportedObject.h"

namespace qv::test {

/// A source value: null, text or an array of numbers.
using Cell = std::variant<std::nullptr_t, std::wstring, std::vector<LONG>>;
using Cells = std::map<std::wstring, Cell>;

/// A source object; Get returns WBEM_E_NOT_FOUND for a missing property.
class RowStandIn : public service::UnsupportedObject {
public:
    explicit RowStandIn(Cells cells) : cells_(std::move(cells)) {}

    STDMETHODIMP Get(LPCWSTR name, LONG, VARIANT* value, CIMTYPE*, LONG*) override {
        const auto found = cells_.find(name);
        if (found == cells_.end()) {
            return windows::Hr(WBEM_E_NOT_FOUND);
        }
        std::visit([value](const auto& cell) { Store(cell, *value); }, found->second);
        return S_OK;
    }

private:
    static void Store(std::nullptr_t, VARIANT& value) { V_VT(&value) = VT_NULL; }
    static void Store(const std::wstring& text, VARIANT& value) {
        V_VT(&value) = VT_BSTR;
        V_BSTR(&value) = windows::Bstr(text).Detach();
    }
    static void Store(const std::vector<LONG>& numbers, VARIANT& value) {
        V_VT(&value) = VT_ARRAY | VT_I4;
        V_ARRAY(&value) = SafeArrayCreateVector(VT_I4, 0, static_cast<ULONG>(numbers.size()));
        for (LONG index = 0; LONG number : numbers) {
            SafeArrayPutElement(V_ARRAY(&value), &index, &number);
            ++index;
        }
    }

    Cells cells_;
};

inline windows::ComPtr<IWbemClassObject> MakeRow(Cells cells) {
    return windows::MakeObject<RowStandIn>(std::move(cells));
}

}  // namespace qv::test
