#include "qvsata/hosting/objects/CimVariantReader.h"

#include <algorithm>
#include <iterator>

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "qvsata/cim/ValueRules.h"

namespace qv::service {
namespace {

using windows::Bstr;

std::string TextOf(BSTR text) {
    return windows::ToNarrow(Bstr::ViewOf(text), CP_UTF8);
}

template <typename Element, typename Target, typename Convert>
std::optional<CimValue> ReadArray(SAFEARRAY* array, Convert convert) {
    const auto* first = static_cast<const Element*>(array->pvData);
    std::vector<Target> values;
    std::transform(first, first + array->rgsabound[0].cElements, std::back_inserter(values),
                   convert);
    return values;
}

template <typename Element>
std::optional<CimValue> ReadNumbers(SAFEARRAY* array) {
    return ReadArray<Element, std::int64_t>(
        array, [](Element number) { return static_cast<std::int64_t>(number); });
}

std::optional<CimValue> ReadArray(const VARIANT& variant) {
    SAFEARRAY* array = V_ARRAY(&variant);
    if (array == nullptr || SafeArrayGetDim(array) != 1) {
        return std::nullopt;
    }
    const auto real = [](auto number) { return static_cast<double>(number); };
    switch (V_VT(&variant) & VT_TYPEMASK) {
        case VT_BSTR:
            return ReadArray<BSTR, std::string>(array, TextOf);
        case VT_BOOL:
            return ReadArray<VARIANT_BOOL, bool>(array,
                                                 [](VARIANT_BOOL flag) { return flag != 0; });
        case VT_I1:
            return ReadNumbers<signed char>(array);
        case VT_UI1:
            return ReadNumbers<BYTE>(array);
        case VT_I2:
            return ReadNumbers<SHORT>(array);
        case VT_UI2:
            return ReadNumbers<USHORT>(array);
        case VT_I4:
        case VT_INT:
            return ReadNumbers<LONG>(array);
        case VT_UI4:
        case VT_UINT:
            return ReadNumbers<ULONG>(array);
        case VT_R4:
            return ReadArray<float, double>(array, real);
        case VT_R8:
            return ReadArray<double, double>(array, real);
        default:
            return std::nullopt;
    }
}

}  // namespace

std::optional<CimValue> ReadVariant(const VARIANT& variant) {
    if ((V_VT(&variant) & VT_ARRAY) != 0) {
        return ReadArray(variant);
    }
    const auto whole = [](auto number) { return CimValue(static_cast<std::int64_t>(number)); };
    switch (V_VT(&variant)) {
        case VT_EMPTY:
        case VT_NULL:
            return CimValue{};
        case VT_BSTR:
            return TextOf(V_BSTR(&variant));
        case VT_BOOL:
            return V_BOOL(&variant) != 0;
        case VT_I1:
            return whole(static_cast<signed char>(V_I1(&variant)));
        case VT_UI1:
            return whole(V_UI1(&variant));
        case VT_I2:
            return whole(V_I2(&variant));
        case VT_UI2:
            return whole(V_UI2(&variant));
        case VT_I4:
            return whole(V_I4(&variant));
        case VT_INT:
            return whole(V_INT(&variant));
        case VT_UI4:
            return whole(V_UI4(&variant));
        case VT_UINT:
            return whole(V_UINT(&variant));
        case VT_I8:
            return std::to_string(V_I8(&variant));
        case VT_UI8:
            return std::to_string(V_UI8(&variant));
        case VT_R4:
            return static_cast<double>(V_R4(&variant));
        case VT_R8:
            return V_R8(&variant);
        default:
            return std::nullopt;
    }
}

std::optional<CimValue> ReadVariant(const VARIANT& variant, CimType type) {
    std::optional<CimValue> value = ReadVariant(variant);
    return value ? std::optional(FromVariantContent(*std::move(value), type)) : std::nullopt;
}

PutValue ReadPut(const VARIANT& variant) {
    const bool isEmptyArrayOfAnything = V_VT(&variant) == (VT_ARRAY | VT_VARIANT) &&
                                        V_ARRAY(&variant) != nullptr &&
                                        V_ARRAY(&variant)->rgsabound[0].cElements == 0;
    if (isEmptyArrayOfAnything) {
        return {V_VT(&variant), std::vector<std::string>{}};
    }
    if (V_VT(&variant) == VT_BOOL) {
        return {VT_BOOL, std::int64_t{V_BOOL(&variant)}};
    }
    return {V_VT(&variant), ReadVariant(variant).value_or(CimValue{})};
}

}  // namespace qv::service
