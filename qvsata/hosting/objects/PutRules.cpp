#include "qvsata/hosting/objects/PutRules.h"

#include <wbemcli.h>

#include "platform/windows/Variant.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/cim/ValueRules.h"
#include "qvsata/hosting/objects/CimVariant.h"
#include "qvsata/hosting/objects/CimVariantReader.h"

namespace qv::service {
namespace {

/// Returns the size in bytes of a whole number's VARIANT type; 0 for other types.
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

HRESULT Store(const VARIANT& variant, CimType type, CimValue& stored) {
    const std::optional<CimValue> value = ReadVariant(variant);
    if (!value || !IsValueOf(*value, type)) {
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
