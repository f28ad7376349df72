#pragma once

#include <windows.h>

namespace qv::provider {

/// Checks that the caller of the current COM call allows impersonation and, if so, impersonates it
/// until destruction. Create it on the stack of the call: it reverts the thread however the call
/// ends.
class ClientImpersonation {
public:
    ClientImpersonation();
    ClientImpersonation(const ClientImpersonation&) = delete;
    ClientImpersonation& operator=(const ClientImpersonation&) = delete;
    ~ClientImpersonation();

    /// S_OK while impersonating; WBEM_E_ACCESS_DENIED if the caller's level is below "impersonate";
    /// otherwise the status of the step that failed (0x8007xxxx for a system error).
    HRESULT Status() const { return status_; }

private:
    HRESULT status_;
};

}  // namespace qv::provider
