#pragma once

#include <windows.h>

#include <objidl.h>

#include "platform/windows/ComObject.h"

namespace qv::service {

/// Who calls the provider: this process's own user at an impersonation level. COM asks it when
/// the provider impersonates its client, as it asks the identity of a remote caller.
class CallerIdentity final : public windows::ComObject<IServerSecurity> {
public:
    explicit CallerIdentity(SECURITY_IMPERSONATION_LEVEL level) : level_(level) {}

    /// WBEM_E_NOT_SUPPORTED: there is no authentication to tell of.
    STDMETHODIMP QueryBlanket(DWORD* authentication, DWORD* authorization, OLECHAR** principal,
                              DWORD* authenticationLevel, DWORD* impersonationLevel,
                              void** privileges, DWORD* capabilities) override;
    /// Gives the thread a token of the level.
    STDMETHODIMP ImpersonateClient() override;
    STDMETHODIMP RevertToSelf() override;
    STDMETHODIMP_(BOOL) IsImpersonating() override { return impersonating_; }

private:
    SECURITY_IMPERSONATION_LEVEL level_;
    BOOL impersonating_ = FALSE;
};

/// Makes what runs on this thread the serving of a call, from construction to destruction; the
/// thread is its own again afterwards, whatever the served call left. Calls may be nested.
class ServedCall {
public:
    /// Raises RequestError when COM refuses.
    explicit ServedCall(SECURITY_IMPERSONATION_LEVEL level);
    ServedCall(const ServedCall&) = delete;
    ServedCall& operator=(const ServedCall&) = delete;
    ~ServedCall();

private:
    windows::ComPtr<CallerIdentity> caller_;
    IUnknown* outer_ =
        nullptr;  ///< the context of the call around this one, which keeps it; or null
};

}  // namespace qv::service
