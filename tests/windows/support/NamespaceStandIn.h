#pragma once

#include <string>

#include "platform/windows/Bstr.h"
#include "platform/windows/UnsupportedServices.h"
#include "tests/windows/support/CallList.h"
#include "tests/windows/support/ClassStandIn.h"

namespace qv::test {

/// A class definition being fetched.
struct GetCall {
    std::wstring className;
    long flags = -1;
    IWbemContext* context = nullptr;  ///< compared, never used

    bool operator==(const GetCall&) const = default;
};

/// The management service as the provider sees it: answers GetObject for every class.
class NamespaceStandIn : public windows::UnsupportedServices<windows::ComObject<IWbemServices>> {
public:
    HRESULT getResult = S_OK;
    windows::ComPtr<ClassStandIn> definition = windows::MakeObject<ClassStandIn>();
    CallList<GetCall> gets;

    STDMETHODIMP GetObject(const BSTR path, long flags, IWbemContext* context,
                           IWbemClassObject** object, IWbemCallResult** callResult) override {
        gets.Add({std::wstring(windows::Bstr::ViewOf(path)), flags, context});
        if (callResult != nullptr) {
            return windows::Hr(WBEM_E_INVALID_PARAMETER);
        }
        if (SUCCEEDED(getResult)) {
            definition.CopyTo(object);
        }
        return getResult;
    }
};

/// A context, which the provider passes on and never looks into.
class ContextStandIn : public windows::ComObject<IWbemContext> {
    static constexpr HRESULT refused = windows::Hr(WBEM_E_NOT_SUPPORTED);

public:
    STDMETHODIMP Clone(IWbemContext**) override { return refused; }
    STDMETHODIMP GetNames(LONG, SAFEARRAY**) override { return refused; }
    STDMETHODIMP BeginEnumeration(LONG) override { return refused; }
    STDMETHODIMP Next(LONG, BSTR*, VARIANT*) override { return refused; }
    STDMETHODIMP EndEnumeration() override { return refused; }
    STDMETHODIMP SetValue(LPCWSTR, LONG, VARIANT*) override { return refused; }
    STDMETHODIMP GetValue(LPCWSTR, LONG, VARIANT*) override { return refused; }
    STDMETHODIMP DeleteValue(LPCWSTR, LONG) override { return refused; }
    STDMETHODIMP DeleteAll() override { return refused; }
};

}  // namespace qv::test
