#include "qvsata/service/com/CimVariant.h"

#include <wbemcli.h>

#include <algorithm>

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"

namespace qv::service {
namespace {

using windows::Bstr;

VARTYPE ScalarType(CimType type) {
    switch (type) {
        case CimType::sint8:
        case CimType::sint16:
        case CimType::char16:
            return VT_I2;
        case CimType::uint8:
            return VT_UI1;
        case CimType::uint16:
        case CimType::sint32:
        case CimType::uint32:
            return VT_I4;
        case CimType::real32:
            return VT_R4;
        case CimType::real64:
            return VT_R8;
        case CimType::boolean:
            return VT_BOOL;
        case CimType::object:
            return VT_UNKNOWN;
        case CimType::string:
        case CimType::sint64:
        case CimType::uint64:
        case CimType::datetime:
        case CimType::reference:
            break;
    }
    return VT_BSTR;
}

BSTR NewText(const std::string& text) {
    return Bstr(windows::ToWide(text, CP_UTF8)).Detach();
}

/// A new array in `out` whose elements `convert` makes of `values`, one by one.
template <typename Element, typename Values, typename Convert>
void WriteArray(VARTYPE elementType, const Values& values, VARIANT& out, Convert convert) {
    SAFEARRAY* array = SafeArrayCreateVector(elementType, 0, static_cast<ULONG>(values.size()));
    if (array == nullptr) {
        throw RequestError(Status::outOfMemory);
    }
    // The variant owns the array from here on, elements that are still empty included.
    V_VT(&out) = static_cast<VARTYPE>(VT_ARRAY | elementType);
    V_ARRAY(&out) = array;
    auto* element = static_cast<Element*>(array->pvData);
    for (const auto& value : values) {
        *element++ = convert(value);
    }
}

void WriteNumbers(const std::vector<std::int64_t>& numbers, VARTYPE elementType, VARIANT& out) {
    const auto as = [](auto kind) {
        return [kind](std::int64_t number) { return static_cast<decltype(kind)>(number); };
    };
    switch (elementType) {
        case VT_UI1:
            return WriteArray<BYTE>(elementType, numbers, out, as(BYTE{}));
        case VT_I2:
            return WriteArray<SHORT>(elementType, numbers, out, as(SHORT{}));
        case VT_I4:
            return WriteArray<LONG>(elementType, numbers, out, as(LONG{}));
        default:
            break;
    }
}

// Writes each kind of value where the type has it; what is left stays VT_NULL.
struct Writer {
    VARTYPE type;
    VARIANT& out;

    void operator()(std::monostate) const {}

    void operator()(bool flag) const {
        if (type == VT_BOOL) {
            V_VT(&out) = VT_BOOL;
            V_BOOL(&out) = flag ? VARIANT_TRUE : VARIANT_FALSE;
        }
    }

    void operator()(std::int64_t number) const {
        switch (type) {
            case VT_UI1:
                V_UI1(&out) = static_cast<BYTE>(number);
                break;
            case VT_I2:
                V_I2(&out) = static_cast<SHORT>(number);
                break;
            case VT_I4:
                V_I4(&out) = static_cast<LONG>(number);
                break;
            case VT_BSTR:
                V_BSTR(&out) = NewText(std::to_string(number));
                break;
            default:
                return;
        }
        V_VT(&out) = type;
    }

    void operator()(double number) const {
        if (type == VT_R4) {
            V_R4(&out) = static_cast<float>(number);
        } else if (type == VT_R8) {
            V_R8(&out) = number;
        } else {
            return;
        }
        V_VT(&out) = type;
    }

    void operator()(const std::string& text) const {
        if (type == VT_BSTR) {
            V_BSTR(&out) = NewText(text);
            V_VT(&out) = VT_BSTR;
        }
    }

    void operator()(const std::vector<bool>& flags) const {
        if (type == VT_BOOL) {
            WriteArray<VARIANT_BOOL>(VT_BOOL, flags, out, [](bool flag) {
                return static_cast<VARIANT_BOOL>(flag ? VARIANT_TRUE : VARIANT_FALSE);
            });
        }
    }

    void operator()(const std::vector<std::int64_t>& numbers) const {
        WriteNumbers(numbers, type, out);
    }

    void operator()(const std::vector<double>& numbers) const {
        if (type == VT_R4) {
            WriteArray<float>(VT_R4, numbers, out,
                              [](double number) { return static_cast<float>(number); });
        } else if (type == VT_R8) {
            WriteArray<double>(VT_R8, numbers, out, [](double number) { return number; });
        }
    }

    void operator()(const std::vector<std::string>& texts) const {
        if (type == VT_BSTR) {
            WriteArray<BSTR>(VT_BSTR, texts, out, NewText);
        }
    }
};

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

void RestoreSign(CimValue& value) {
    const auto restore = [](std::int64_t& one) { one = static_cast<std::uint32_t>(one); };
    if (auto* one = std::get_if<std::int64_t>(&value)) {
        restore(*one);
    } else if (auto* several = std::get_if<std::vector<std::int64_t>>(&value)) {
        std::ranges::for_each(*several, restore);
    }
}

}  // namespace

VARTYPE VariantTypeOf(CimType type, bool isArray) {
    return static_cast<VARTYPE>(ScalarType(type) | (isArray ? VT_ARRAY : 0));
}

long CimTypeNumber(CimType type, bool isArray) {
    return static_cast<long>(type) | (isArray ? CIM_FLAG_ARRAY : 0);
}

void WriteVariant(const CimValue& value, CimType type, VARIANT& out) {
    V_VT(&out) = VT_NULL;
    std::visit(Writer{ScalarType(type), out}, value);
}

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
    if (value && type == CimType::uint32) {
        RestoreSign(*value);
    }
    return value;
}

}  // namespace qv::service
