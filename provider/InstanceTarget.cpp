#include "provider/InstanceTarget.h"

#include <string>
#include <type_traits>
#include <vector>

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "source/TypedValue.h"

namespace qv::provider {
namespace {

using windows::Bstr;
using windows::Hr;
using windows::ToStatus;
using windows::ToWide;
using windows::Variant;

// The platform's usual true is -1; this one is 1, on purpose.
constexpr VARIANT_BOOL publishedTrue = 1;

/// Creates an array of `count` elements, which the variant owns.
SAFEARRAY* MakeArray(VARTYPE elementType, std::size_t count, VARIANT& out) {
    SAFEARRAY* array = SafeArrayCreateVector(elementType, 0, static_cast<ULONG>(count));
    if (array == nullptr) {
        throw RequestError(Status::outOfMemory);
    }
    V_VT(&out) = static_cast<VARTYPE>(VT_ARRAY | elementType);
    V_ARRAY(&out) = array;
    return array;
}

void StoreText(std::wstring_view text, VARIANT& out) {
    V_BSTR(&out) = Bstr(text).Detach();
    V_VT(&out) = VT_BSTR;
}

// One overload for each published type; `out` is empty.
void Store(std::monostate, VARIANT& out) {
    V_VT(&out) = VT_NULL;
}

void Store(const std::string& text, VARIANT& out) {
    StoreText(ToWide(text), out);
}

void Store(std::uint8_t number, VARIANT& out) {
    V_VT(&out) = VT_UI1;
    V_UI1(&out) = number;
}

void Store(std::int32_t number, VARIANT& out) {
    V_VT(&out) = VT_I4;
    V_I4(&out) = number;
}

void Store(bool flag, VARIANT& out) {
    V_VT(&out) = VT_BOOL;
    V_BOOL(&out) = flag ? publishedTrue : VARIANT_FALSE;
}

void Store(const std::vector<std::string>& texts, VARIANT& out) {
    SAFEARRAY* array = MakeArray(VT_BSTR, texts.size(), out);
    for (LONG index = 0; const std::string& text : texts) {
        if (FAILED(SafeArrayPutElement(array, &index, Bstr(ToWide(text)).Get()))) {
            throw RequestError(Status::outOfMemory);
        }
        ++index;
    }
}

void Store(const std::vector<std::int32_t>& numbers, VARIANT& out) {
    SAFEARRAY* array = MakeArray(VT_I4, numbers.size(), out);
    for (LONG index = 0; std::int32_t number : numbers) {
        SafeArrayPutElement(array, &index, &number);
        ++index;
    }
}

}  // namespace

HRESULT ToVariant(const PropertyEntry& entry, std::wstring_view namespacePrefix, Variant& value) {
    TypedValue typed;
    if (!ToTypedValue(entry, typed)) {
        return Hr(WBEM_E_INVALID_CIM_TYPE);
    }
    VARIANT& out = *value.Receive();
    std::visit(
        [namespacePrefix, &out](const auto& held) {
            if constexpr (std::is_same_v<std::decay_t<decltype(held)>, Reference>) {
                StoreText(std::wstring(namespacePrefix).append(ToWide(held.path)), out);
            } else {
                Store(held, out);
            }
        },
        typed);
    return Hr(WBEM_S_NO_ERROR);
}

Status InstanceTarget::Put(const PropertyEntry& property) {
    Variant value;
    const HRESULT converted = ToVariant(property, namespacePrefix_, value);
    return FAILED(converted) ? ToStatus(converted) : Put(property.name, value);
}

Status InstanceTarget::PutWideText(std::string_view name, std::wstring_view text) {
    Variant value;
    StoreText(text, *value.Receive());
    return Put(name, value);
}

Status InstanceTarget::Put(std::string_view name, Variant& value) {
    return ToStatus(instance_.Put(Bstr(ToWide(name)).Get(), 0, value.Pass(), 0));
}

}  // namespace qv::provider
