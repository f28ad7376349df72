#pragma once

#include <objbase.h>
#include <objidl.h>

#include <string>
#include <vector>

#include "platform/windows/ComObject.h"
#include "platform/windows/Handle.h"

namespace qv::test {

/// The caller of a COM call, with real tokens. CoImpersonateClient and CoRevertToSelf reach it on a
/// thread whose call context it is. Used by that thread only.
class CallerStandIn : public windows::ComObject<IServerSecurity> {
public:
    explicit CallerStandIn(SECURITY_IMPERSONATION_LEVEL level = SecurityImpersonation)
        : level_(level) {}

    std::vector<HRESULT> impersonateResults;  ///< of the first calls; later ones succeed
    HRESULT revertResult = S_OK;
    bool withoutToken = false;       ///< impersonation succeeds without changing the thread
    std::vector<std::string> calls;  ///< "impersonate" and "revert"

    STDMETHODIMP QueryBlanket(DWORD*, DWORD*, OLECHAR**, DWORD*, DWORD*, void**, DWORD*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP ImpersonateClient() override {
        const std::size_t turn = impersonations_++;
        calls.emplace_back("impersonate");
        const HRESULT result = turn < impersonateResults.size() ? impersonateResults[turn] : S_OK;
        return FAILED(result) || withoutToken ? result : TakeToken();
    }
    STDMETHODIMP RevertToSelf() override {
        calls.emplace_back("revert");
        SetThreadToken(nullptr, nullptr);
        return revertResult;
    }
    STDMETHODIMP_(BOOL) IsImpersonating() override { return FALSE; }

private:
    HRESULT TakeToken() const {
        windows::KernelHandle own;
        windows::KernelHandle token;
        if (!OpenProcessToken(GetCurrentProcess(), TOKEN_DUPLICATE, own.Receive()) ||
            !DuplicateTokenEx(own.Get(), TOKEN_QUERY | TOKEN_IMPERSONATE, nullptr, level_,
                              TokenImpersonation, token.Receive()) ||
            !SetThreadToken(nullptr, token.Get())) {
            return HRESULT_FROM_WIN32(GetLastError());
        }
        return S_OK;
    }

    SECURITY_IMPERSONATION_LEVEL level_;
    std::size_t impersonations_ = 0;
};

/// Makes `caller` the caller of the thread's COM calls while it lives.
class CallContext {
public:
    explicit CallContext(CallerStandIn& caller) { CoSwitchCallContext(&caller, &former_); }
    CallContext(const CallContext&) = delete;
    CallContext& operator=(const CallContext&) = delete;
    ~CallContext() {
        IUnknown* own = nullptr;
        CoSwitchCallContext(former_, &own);
    }

private:
    IUnknown* former_ = nullptr;
};

/// Returns whether the thread runs under its process's own identity.
inline bool ThreadIsItsOwn() {
    windows::KernelHandle token;
    return !OpenThreadToken(GetCurrentThread(), TOKEN_QUERY, TRUE, token.Receive()) &&
           GetLastError() == ERROR_NO_TOKEN;
}

}  // namespace qv::test
