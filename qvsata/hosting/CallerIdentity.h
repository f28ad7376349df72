#pragma once

#include <windows.h>

#include <objidl.h>

#include "platform/windows/ComObject.h"

namespace qv::service {

/// The provider's caller: this process's own user at an impersonation level. COM calls it when the
/// provider impersonates its client, as for a remote caller.
class CallerIdentity final : public windows::ComObject<IServerSecurity> {
public:
    explicit CallerIdentity(SECURITY_IMPERSONATION_LEVEL level) : level_(level) {}

    /// Returns WBEM_E_NOT_SUPPORTED: the call has no authentication.
    STDMETHODIMP QueryBlanket(DWORD* authentication, DWORD* authorization, OLECHAR** principal,
                              DWORD* authenticationLevel, DWORD* impersonationLevel,
                              void** privileges, DWORD* capabilities) override;
    /// Sets a token of the level on the thread.
    STDMETHODIMP ImpersonateClient() override;
    STDMETHODIMP RevertToSelf() override;
    STDMETHODIMP_(BOOL) IsImpersonating() override { return impersonating_; }

private:
    SECURITY_IMPERSONATION_LEVEL level_;
    BOOL impersonating_ = FALSE;
};

/// Makes the code on this thread part of a served call, from construction to destruction.
/// Destruction restores the thread, whatever the served call left behind. Calls may be nested.
class ServedCall {
public:
    /// Throws RequestError if COM fails.
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
