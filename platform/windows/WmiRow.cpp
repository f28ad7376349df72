#include "platform/windows/WmiRow.h"

#include <vector>

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/Variant.h"

namespace qv::windows {
namespace {

template <typename Element>
platform::Value ToArray(SAFEARRAY* array) {
    LONG lower = 0;
    LONG upper = 0;
    void* data = nullptr;
    if (array == nullptr || SafeArrayGetDim(array) != 1 ||
        FAILED(SafeArrayGetLBound(array, 1, &lower)) ||
        FAILED(SafeArrayGetUBound(array, 1, &upper)) || FAILED(SafeArrayAccessData(array, &data))) {
        return platform::UnreadValue{};
    }
    const auto* first = static_cast<const Element*>(data);
    std::vector<Element> elements(first, first + (upper - lower + 1));
    SafeArrayUnaccessData(array);
    return elements;
}

}  // namespace

platform::Value ToValue(const VARIANT& variant) {
    switch (V_VT(&variant)) {
        case VT_EMPTY:
        case VT_NULL:
            return std::monostate{};
        case VT_BSTR:
            return ToNarrow(Bstr::ViewOf(V_BSTR(&variant)));
        case VT_BOOL:
            return V_BOOL(&variant) != 0;
        case VT_I1:
            return static_cast<std::int8_t>(V_I1(&variant));
        case VT_UI1:
            return V_UI1(&variant);
        case VT_I2:
            return V_I2(&variant);
        case VT_UI2:
            return V_UI2(&variant);
        case VT_I4:
            return static_cast<std::int32_t>(V_I4(&variant));
        case VT_UI4:
            return static_cast<std::uint32_t>(V_UI4(&variant));
        case VT_INT:
            return static_cast<std::int32_t>(V_INT(&variant));
        case VT_UINT:
            return static_cast<std::uint32_t>(V_UINT(&variant));
        case VT_ARRAY | VT_I2:
            return ToArray<std::int16_t>(V_ARRAY(&variant));
        case VT_ARRAY | VT_UI2:
            return ToArray<std::uint16_t>(V_ARRAY(&variant));
        case VT_ARRAY | VT_I4:
            return ToArray<std::int32_t>(V_ARRAY(&variant));
        case VT_ARRAY | VT_UI4:
            return ToArray<std::uint32_t>(V_ARRAY(&variant));
        default:
            return platform::UnreadValue{};
    }
}

platform::PropertyRead WmiRow::Get(std::string_view name) const {
    Variant value;
    const std::wstring wideName = ToWide(name);
    const HRESULT result = object_->Get(wideName.c_str(), 0, value.Receive(), nullptr, nullptr);
    if (FAILED(result)) {
        return {static_cast<Status>(result), {}};
    }
    return {Status::noError, ToValue(value.Get())};
}

}  // namespace qv::windows
