#pragma once

#include <map>
#include <string>

#include "platform/windows/Bstr.h"
#include "platform/windows/UnsupportedServices.h"
#include "tests/support/windows/CallList.h"
#include "tests/support/windows/ClassStandIn.h"

namespace qv::test {

/// A request for a class definition.
struct GetCall {
    std::wstring className;
    long flags = -1;
    IWbemContext* context = nullptr;  ///< compared, never used

    bool operator==(const GetCall&) const = default;
};

/// The management service as the provider sees it: answers GetObject for every class. Set it up
/// before a thread calls it.
class NamespaceStandIn : public windows::UnsupportedServices<windows::ComObject<IWbemServices>> {
public:
    HRESULT getResult = S_OK;
    std::map<std::wstring, HRESULT> getResults;  ///< by class; getResult for the others
    windows::ComPtr<ClassStandIn> definition = windows::MakeObject<ClassStandIn>();
    CallList<GetCall> gets;

    STDMETHODIMP GetObject(const BSTR path, long flags, IWbemContext* context,
                           IWbemClassObject** object, IWbemCallResult** callResult) override {
        const std::wstring name(windows::Bstr::ViewOf(path));
        gets.Add({name, flags, context});
        if (callResult != nullptr) {
            return windows::Hr(WBEM_E_INVALID_PARAMETER);
        }
        const auto found = getResults.find(name);
        const HRESULT result = found == getResults.end() ? getResult : found->second;
        if (SUCCEEDED(result)) {
            definition.CopyTo(object);
        }
        return result;
    }
};

/// A context, which the provider passes on and never reads.
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
