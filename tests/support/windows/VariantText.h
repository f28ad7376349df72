#pragma once

#include <objbase.h>
#include <oleauto.h>
#include <windows.h>

#include <string>

#include "platform/windows/Bstr.h"

namespace qv::test {

/// Returns one element of an array of texts or of 32-bit numbers as text.
inline std::wstring ElementText(SAFEARRAY* array, VARTYPE type, LONG index) {
    if (type == VT_BSTR) {
        windows::Bstr text;
        SafeArrayGetElement(array, &index, text.Receive());
        return std::wstring(text.View());
    }
    LONG number = 0;
    SafeArrayGetElement(array, &index, &number);
    return std::to_wstring(number);
}

/// Returns the value of a VARIANT as text, without its type: numbers and the bits of booleans in
/// decimal, "|" before each element, nothing for VT_NULL.
inline std::wstring VariantText(const VARIANT& value) {
    if ((V_VT(&value) & VT_ARRAY) != 0) {
        LONG upper = -1;
        SafeArrayGetUBound(V_ARRAY(&value), 1, &upper);
        std::wstring text;
        for (LONG index = 0; index <= upper; ++index) {
            text += L"|" + ElementText(V_ARRAY(&value),
                                       static_cast<VARTYPE>(V_VT(&value) & ~VT_ARRAY), index);
        }
        return text;
    }
    switch (V_VT(&value)) {
        case VT_BSTR:
            return std::wstring(windows::Bstr::ViewOf(V_BSTR(&value)));
        case VT_UI1:
            return std::to_wstring(V_UI1(&value));
        case VT_I4:
            return std::to_wstring(V_I4(&value));
        case VT_BOOL:
            return std::to_wstring(V_BOOL(&value));
        case VT_NULL:
            return {};
        default:
            return L"a value of another type";
    }
}

}  // namespace qv::test
