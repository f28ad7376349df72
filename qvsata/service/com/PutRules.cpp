#include "qvsata/service/com/PutRules.h"

#include <wbemcli.h>

#include <algorithm>
#include <charconv>
#include <limits>
#include <string_view>

#include "platform/windows/Variant.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/service/com/CimVariant.h"

namespace qv::service {
namespace {

/// Bytes of a whole number's VARIANT type; 0 for other types.
int WidthOf(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_UI1:
            return 1;
        case VT_I2:
        case VT_UI2:
            return 2;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
            return 4;
        case VT_I8:
        case VT_UI8:
            return 8;
        default:
            return 0;
    }
}

bool WouldBeWidened(VARTYPE from, VARTYPE to) {
    return WidthOf(from) != 0 && WidthOf(from) < WidthOf(to);
}

template <typename Number>
bool IsDecimal(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size();
}

/// yyyymmddHHMMSS.mmmmmmsUUU, or an interval ddddddddHHMMSS.mmmmmm:000; an asterisk stands for a
/// digit that is not known.
bool IsDate(std::string_view text) {
    constexpr std::string_view shape = "dddddddddddddd.ddddddsddd";
    return std::ranges::equal(text, shape, [](char character, char kind) {
        switch (kind) {
            case 'd':
                return (character >= '0' && character <= '9') || character == '*';
            case 's':
                return character == '+' || character == '-' || character == ':';
            default:
                return character == kind;
        }
    });
}

bool FitsNumber(std::int64_t number, CimType type) {
    switch (type) {
        case CimType::uint16:
            return number >= 0 && number <= std::numeric_limits<std::uint16_t>::max();
        case CimType::sint8:
            return number >= std::numeric_limits<std::int8_t>::min() &&
                   number <= std::numeric_limits<std::int8_t>::max();
        default:
            return true;
    }
}

bool FitsText(std::string_view text, CimType type) {
    switch (type) {
        case CimType::sint64:
            return IsDecimal<std::int64_t>(text);
        case CimType::uint64:
            return IsDecimal<std::uint64_t>(text);
        case CimType::datetime:
            return IsDate(text);
        default:
            return true;
    }
}

/// Whether a value of the property's own VARIANT type is one of the property's values.
bool Fits(const CimValue& value, CimType type) {
    const auto number = [type](std::int64_t one) { return FitsNumber(one, type); };
    const auto text = [type](const std::string& one) { return FitsText(one, type); };
    if (const auto* one = std::get_if<std::int64_t>(&value)) {
        return number(*one);
    }
    if (const auto* one = std::get_if<std::string>(&value)) {
        return text(*one);
    }
    if (const auto* several = std::get_if<std::vector<std::int64_t>>(&value)) {
        return std::ranges::all_of(*several, number);
    }
    if (const auto* several = std::get_if<std::vector<std::string>>(&value)) {
        return std::ranges::all_of(*several, text);
    }
    return true;
}

HRESULT Store(const VARIANT& variant, CimType type, CimValue& stored) {
    const std::optional<CimValue> value = ReadVariant(variant);
    if (!value || !Fits(*value, type)) {
        return windows::Hr(WBEM_E_TYPE_MISMATCH);
    }
    stored = std::move(*ReadVariant(variant, type));
    return WBEM_S_NO_ERROR;
}

bool IsEmptyArrayOfAnything(const VARIANT& put) {
    return V_VT(&put) == (VT_ARRAY | VT_VARIANT) && V_ARRAY(&put) != nullptr &&
           V_ARRAY(&put)->rgsabound[0].cElements == 0;
}

CimValue EmptyArray(VARTYPE elementType) {
    switch (elementType) {
        case VT_BSTR:
            return std::vector<std::string>{};
        case VT_BOOL:
            return std::vector<bool>{};
        case VT_R4:
        case VT_R8:
            return std::vector<double>{};
        default:
            return std::vector<std::int64_t>{};
    }
}

}  // namespace

HRESULT ConvertForPut(const VARIANT& put, CimType type, bool isArray, CimValue& stored) {
    const VARTYPE wanted = VariantTypeOf(type, isArray);
    if (V_VT(&put) == VT_NULL) {
        stored = {};
        return WBEM_S_NO_ERROR;
    }
    if (V_VT(&put) == wanted) {
        return Store(put, type, stored);
    }
    if (isArray && IsEmptyArrayOfAnything(put)) {
        stored = EmptyArray(static_cast<VARTYPE>(wanted & VT_TYPEMASK));
        return WBEM_S_NO_ERROR;
    }
    if (isArray || WouldBeWidened(V_VT(&put), wanted)) {
        return windows::Hr(WBEM_E_TYPE_MISMATCH);
    }
    VARIANT borrowed = put;
    windows::Variant converted;
    if (FAILED(VariantChangeTypeEx(converted.Receive(), &borrowed, LOCALE_INVARIANT, 0, wanted))) {
        return windows::Hr(WBEM_E_TYPE_MISMATCH);
    }
    return Store(converted.Get(), type, stored);
}

}  // namespace qv::service
