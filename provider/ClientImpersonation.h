#pragma once

#include <windows.h>

namespace qv::provider {

/// Checks that the caller of the current COM call allows impersonation and, where it does,
/// impersonates it until destruction. Belongs on the stack of the call; whatever way the call
/// ends, the thread is its own again.
class ClientImpersonation {
public:
    ClientImpersonation();
    ClientImpersonation(const ClientImpersonation&) = delete;
    ClientImpersonation& operator=(const ClientImpersonation&) = delete;
    ~ClientImpersonation();

    /// S_OK while impersonating; WBEM_E_ACCESS_DENIED when the caller's level is below
    /// "impersonate"; else the status of the step that failed (0x8007xxxx for a system error).
    HRESULT Status() const { return status_; }

private:
    HRESULT status_;
};

}  // namespace qv::provider
