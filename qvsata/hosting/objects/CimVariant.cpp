// Types, and values as the management service delivers them.
#include "qvsata/hosting/objects/CimVariant.h"

#include <wbemcli.h>

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"

namespace qv::service {
namespace {

using windows::Bstr;

static_assert(variant::null == VT_NULL && variant::int16 == VT_I2 && variant::int32 == VT_I4 &&
              variant::real32 == VT_R4 && variant::real64 == VT_R8 && variant::text == VT_BSTR &&
              variant::boolean == VT_BOOL && variant::any == VT_VARIANT &&
              variant::object == VT_UNKNOWN && variant::int8 == VT_I1 && variant::uint8 == VT_UI1 &&
              variant::uint16 == VT_UI2 && variant::uint32 == VT_UI4 && variant::int64 == VT_I8 &&
              variant::uint64 == VT_UI8 && variant::nativeInt == VT_INT &&
              variant::nativeUint == VT_UINT && variant::array == VT_ARRAY);

BSTR NewText(const std::string& text) {
    return Bstr(windows::ToWide(text, CP_UTF8)).Detach();
}

/// Creates an array in `out`; `convert` makes each element from one of `values`.
template <typename Element, typename Values, typename Convert>
void WriteArray(VARTYPE elementType, const Values& values, VARIANT& out, Convert convert) {
    SAFEARRAY* array = SafeArrayCreateVector(elementType, 0, static_cast<ULONG>(values.size()));
    if (array == nullptr) {
        throw RequestError(Status::outOfMemory);
    }
    // From here on the variant owns the array, including elements that are still empty.
    V_VT(&out) = static_cast<VARTYPE>(VT_ARRAY | elementType);
    V_ARRAY(&out) = array;
    auto* element = static_cast<Element*>(array->pvData);
    for (const auto& value : values) {
        *element++ = convert(value);
    }
}

void WriteNumbers(const std::vector<std::int64_t>& numbers, VARTYPE elementType, VARIANT& out) {
    const auto as = []<typename Number>(Number) {
        return [](std::int64_t number) { return static_cast<Number>(number); };
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

// Writes each kind of value if the type takes it; anything else stays VT_NULL.
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

}  // namespace

long CimTypeNumber(CimType type, bool isArray) {
    return static_cast<long>(type) | (isArray ? CIM_FLAG_ARRAY : 0);
}

void WriteVariant(const CimValue& value, CimType type, VARIANT& out) {
    V_VT(&out) = VT_NULL;
    std::visit(Writer{VariantTypeOf(type, false), out}, value);
}

}  // namespace qv::service
