#pragma once

#include <windows.h>

#include <wbemcli.h>

#include "platform/windows/ComObject.h"
#include "platform/windows/WbemStatus.h"

namespace qv::service {

/// An IWbemClassObject of which every operation answers WBEM_E_NOT_SUPPORTED; a derived class
/// overrides what it does.
class UnsupportedObject : public windows::ComObject<IWbemClassObject> {
    using Object = IWbemClassObject;
    using Qualifiers = IWbemQualifierSet;
    static constexpr HRESULT refused = windows::Hr(WBEM_E_NOT_SUPPORTED);

public:
    // clang-format off
    STDMETHODIMP GetQualifierSet(Qualifiers**) override { return refused; }
    STDMETHODIMP Get(LPCWSTR, LONG, VARIANT*, CIMTYPE*, LONG*) override { return refused; }
    STDMETHODIMP Put(LPCWSTR, LONG, VARIANT*, CIMTYPE) override { return refused; }
    STDMETHODIMP Delete(LPCWSTR) override { return refused; }
    STDMETHODIMP GetNames(LPCWSTR, LONG, VARIANT*, SAFEARRAY**) override { return refused; }
    STDMETHODIMP BeginEnumeration(LONG) override { return refused; }
    STDMETHODIMP Next(LONG, BSTR*, VARIANT*, CIMTYPE*, LONG*) override { return refused; }
    STDMETHODIMP EndEnumeration() override { return refused; }
    STDMETHODIMP GetPropertyQualifierSet(LPCWSTR, Qualifiers**) override { return refused; }
    STDMETHODIMP Clone(Object**) override { return refused; }
    STDMETHODIMP GetObjectText(LONG, BSTR*) override { return refused; }
    STDMETHODIMP SpawnDerivedClass(LONG, Object**) override { return refused; }
    STDMETHODIMP SpawnInstance(LONG, Object**) override { return refused; }
    STDMETHODIMP CompareTo(LONG, Object*) override { return refused; }
    STDMETHODIMP GetPropertyOrigin(LPCWSTR, BSTR*) override { return refused; }
    STDMETHODIMP InheritsFrom(LPCWSTR) override { return refused; }
    STDMETHODIMP GetMethod(LPCWSTR, LONG, Object**, Object**) override { return refused; }
    STDMETHODIMP PutMethod(LPCWSTR, LONG, Object*, Object*) override { return refused; }
    STDMETHODIMP DeleteMethod(LPCWSTR) override { return refused; }
    STDMETHODIMP BeginMethodEnumeration(LONG) override { return refused; }
    STDMETHODIMP NextMethod(LONG, BSTR*, Object**, Object**) override { return refused; }
    STDMETHODIMP EndMethodEnumeration() override { return refused; }
    STDMETHODIMP GetMethodQualifierSet(LPCWSTR, Qualifiers**) override { return refused; }
    STDMETHODIMP GetMethodOrigin(LPCWSTR, BSTR*) override { return refused; }
    // clang-format on
};

}  // namespace qv::service
