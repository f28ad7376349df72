#pragma once

#include <windows.h>

#include <wmiutils.h>

#include <string>

#include "platform/windows/ComObject.h"
#include "platform/windows/WbemStatus.h"

__CRT_UUID_DECL(IWbemPath, 0x3BC15AF2, 0x736C, 0x477E, 0x9E, 0x51, 0x23, 0x8A, 0xF8, 0x66, 0x7D,
                0xCC)

namespace qv::service {

/// The class ID of the path parser, {CF4CC405-E2C5-4DDD-B3CE-5E7582D8C9FA}.
inline constexpr CLSID pathParserId{
    0xCF4CC405, 0xE2C5, 0x4DDD, {0xB3, 0xCE, 0x5E, 0x75, 0x82, 0xD8, 0xC9, 0xFA}};

/// The object path parser of the embedded management service: SetText, GetText and GetClassName
/// of IWbemPath; everything else is refused with WBEM_E_NOT_SUPPORTED. The text from the class on
/// is given back as it was set: letter case, key order, quotes and escapes kept. One thread.
class PathParser final : public windows::ComObject<IWbemPath> {
public:
    /// WBEM_E_INVALID_PARAMETER for mode 0, a null text and a text that is no path; what was set
    /// before is lost then. An empty text clears the parser.
    STDMETHODIMP SetText(ULONG mode, LPCWSTR path) override;
    /// `length` counts characters, the terminating null among them, in and out. A buffer that is
    /// too small gives WBEM_E_BUFFER_TOO_SMALL and the length needed (that code is a choice).
    STDMETHODIMP GetText(LONG flags, ULONG* length, LPWSTR text) override;
    STDMETHODIMP GetClassName(ULONG* length, LPWSTR name) override;

    // clang-format off
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
    STDMETHODIMP GetKeyList(IWbemPathKeyList**) override { return refused; }
    STDMETHODIMP CreateClassPart(LONG, LPCWSTR) override { return refused; }
    STDMETHODIMP DeleteClassPart(LONG) override { return refused; }
    STDMETHODIMP_(BOOL) IsRelative(LPWSTR, LPWSTR) override { return FALSE; }
    STDMETHODIMP_(BOOL) IsRelativeOrChild(LPWSTR, LPWSTR, LONG) override { return FALSE; }
    STDMETHODIMP_(BOOL) IsLocal(LPCWSTR) override { return FALSE; }
    STDMETHODIMP_(BOOL) IsSameClassName(LPCWSTR) override { return FALSE; }
    // clang-format on

private:
    static constexpr HRESULT refused = windows::Hr(WBEM_E_NOT_SUPPORTED);

    /// The path taken apart; each part is empty when the text has none.
    struct Parts {
        std::wstring original;
        std::wstring server;
        std::wstring nameSpace;  ///< with backslashes
        std::wstring relative;
        std::wstring className;
    };

    static bool Split(std::wstring_view text, Parts& parts);
    std::wstring TextFor(LONG flags) const;

    Parts parts_;
};

}  // namespace qv::service
