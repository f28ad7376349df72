#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "qvsata/hosting/substitutes/UnsupportedPath.h"
#include "tests/support/windows/CallList.h"
#include "tests/support/windows/RegisteredFactory.h"

namespace qv::test {

/// The answers of the parsers, set up before the first call, and the calls.
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

/// Splits \\server\namespace:Class.Keys or Class.Keys at the first ":" before any quote and returns
/// the texts unchanged. As with the platform's parser, a buffer that is too small stays unchanged
/// and the call succeeds.
class PathStandIn : public service::UnsupportedPath {
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

/// Replaces the system's path parsers while it lives.
class PathParserStandIn : public PathScript {
public:
    PathParserStandIn()
        : factory_(windows::pathParserClassId, [this](REFIID iid, void** object) {
              return FAILED(created)
                         ? created
                         : windows::MakeObject<PathStandIn>(*this)->QueryInterface(iid, object);
          }) {}

private:
    RegisteredFactory factory_;
};

}  // namespace qv::test
