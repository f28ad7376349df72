#pragma once

#include "platform/windows/ComObject.h"
#include "platform/windows/PathTexts.h"
#include "platform/windows/WbemStatus.h"

namespace qv::service {

/// An IWbemPath of which every operation is refused with WBEM_E_NOT_SUPPORTED; a derived class
/// overrides what it does.
class UnsupportedPath : public windows::ComObject<IWbemPath> {
    static constexpr HRESULT refused = windows::Hr(WBEM_E_NOT_SUPPORTED);

public:
    // clang-format off
    STDMETHODIMP SetText(ULONG, LPCWSTR) override { return refused; }
    STDMETHODIMP GetText(long, ULONG*, LPWSTR) override { return refused; }
    STDMETHODIMP GetInfo(ULONG, ULONGLONG*) override { return refused; }
    STDMETHODIMP SetServer(LPCWSTR) override { return refused; }
    STDMETHODIMP GetServer(ULONG*, LPWSTR) override { return refused; }
    STDMETHODIMP GetNamespaceCount(ULONG*) override { return refused; }
    STDMETHODIMP SetNamespaceAt(ULONG, LPCWSTR) override { return refused; }
    STDMETHODIMP GetNamespaceAt(ULONG, ULONG*, LPWSTR) override { return refused; }
    STDMETHODIMP RemoveNamespaceAt(ULONG) override { return refused; }
    STDMETHODIMP RemoveAllNamespaces() override { return refused; }
    STDMETHODIMP GetScopeCount(ULONG*) override { return refused; }
    STDMETHODIMP SetScope(ULONG, LPWSTR) override { return refused; }
    STDMETHODIMP SetScopeFromText(ULONG, LPWSTR) override { return refused; }
    STDMETHODIMP GetScope(ULONG, ULONG*, LPWSTR, IWbemPathKeyList**) override { return refused; }
    STDMETHODIMP GetScopeAsText(ULONG, ULONG*, LPWSTR) override { return refused; }
    STDMETHODIMP RemoveScope(ULONG) override { return refused; }
    STDMETHODIMP RemoveAllScopes() override { return refused; }
    STDMETHODIMP SetClassName(LPCWSTR) override { return refused; }
    STDMETHODIMP GetClassName(ULONG*, LPWSTR) override { return refused; }
    STDMETHODIMP GetKeyList(IWbemPathKeyList**) override { return refused; }
    STDMETHODIMP CreateClassPart(long, LPCWSTR) override { return refused; }
    STDMETHODIMP DeleteClassPart(long) override { return refused; }
    STDMETHODIMP_(BOOL) IsRelative(LPWSTR, LPWSTR) override { return FALSE; }
    STDMETHODIMP_(BOOL) IsRelativeOrChild(LPWSTR, LPWSTR, long) override { return FALSE; }
    STDMETHODIMP_(BOOL) IsLocal(LPCWSTR) override { return FALSE; }
    STDMETHODIMP_(BOOL) IsSameClassName(LPCWSTR) override { return FALSE; }
    // clang-format on
};

}  // namespace qv::service
