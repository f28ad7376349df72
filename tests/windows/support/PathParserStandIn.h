#pragma once

#include <wmiutils.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/windows/ComObject.h"
#include "platform/windows/WbemStatus.h"
#include "tests/windows/support/CallList.h"
#include "tests/windows/support/RegisteredFactory.h"

__CRT_UUID_DECL(IWbemPath, 0x3bc15af2, 0x736c, 0x477e, 0x9e, 0x51, 0x23, 0x8a, 0xf8, 0x66, 0x7d,
                0xcc)

namespace qv::test {

inline constexpr CLSID pathParserId{
    0xCF4CC405, 0xE2C5, 0x4DDD, {0xB3, 0xCE, 0x5E, 0x75, 0x82, 0xD8, 0xC9, 0xFA}};

/// An IWbemPath of which every operation is refused.
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

/// What the parsers answer, set up before they are asked, and what they were asked.
struct PathScript {
    HRESULT created = S_OK;
    HRESULT setText = S_OK;
    HRESULT getText = S_OK;
    HRESULT getClassName = S_OK;

    struct Call {
        std::wstring operation;
        long flags = 0;    ///< mode or flags
        ULONG length = 0;  ///< the room of the buffer

        bool operator==(const Call&) const = default;
    };
    CallList<Call> calls;
};

/// Splits \\server\namespace:Class.Keys or Class.Keys at the first ":" in front of any quote and
/// gives the texts back as they were given. A buffer that is too small stays as it is and the call
/// succeeds, as the platform's parser has it.
class PathStandIn : public UnsupportedPath {
public:
    explicit PathStandIn(PathScript& script) : script_(script) {}

    STDMETHODIMP SetText(ULONG mode, LPCWSTR path) override {
        script_.calls.Add({L"SetText", static_cast<long>(mode), 0});
        const std::wstring_view text(path);
        const auto colon = text.substr(0, text.find(L'"')).find(L':');
        relative_ = colon == text.npos ? text : text.substr(colon + 1);
        return script_.setText;
    }
    STDMETHODIMP GetText(long flags, ULONG* length, LPWSTR text) override {
        script_.calls.Add({L"GetText", flags, *length});
        return FAILED(script_.getText) ? script_.getText : Copy(relative_, length, text);
    }
    STDMETHODIMP GetClassName(ULONG* length, LPWSTR name) override {
        script_.calls.Add({L"GetClassName", 0, *length});
        return FAILED(script_.getClassName)
                   ? script_.getClassName
                   : Copy(relative_.substr(0, relative_.find(L'.')), length, name);
    }

private:
    static HRESULT Copy(const std::wstring& text, ULONG* length, LPWSTR buffer) {
        const ULONG needed = static_cast<ULONG>(text.size()) + 1;
        if (needed <= *length) {
            std::copy_n(text.c_str(), needed, buffer);
        }
        *length = needed;
        return S_OK;
    }

    PathScript& script_;
    std::wstring relative_;
};

/// Path parsers in front of the system's while it lives.
class PathParserStandIn : public PathScript {
public:
    PathParserStandIn()
        : factory_(pathParserId, [this](REFIID iid, void** object) {
              return FAILED(created)
                         ? created
                         : windows::MakeObject<PathStandIn>(*this)->QueryInterface(iid, object);
          }) {}

private:
    RegisteredFactory factory_;
};

}  // namespace qv::test
