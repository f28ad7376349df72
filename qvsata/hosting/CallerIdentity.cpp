#include "qvsata/hosting/CallerIdentity.h"

#include <wbemcli.h>

#include "platform/Status.h"
#include "platform/windows/WbemStatus.h"

namespace qv::service {

HRESULT CallerIdentity::QueryBlanket(DWORD*, DWORD*, OLECHAR**, DWORD*, DWORD*, void**, DWORD*) {
    return windows::Hr(WBEM_E_NOT_SUPPORTED);
}

HRESULT CallerIdentity::ImpersonateClient() {
    if (!ImpersonateSelf(level_)) {
        return HRESULT_FROM_WIN32(GetLastError());
    }
    impersonating_ = TRUE;
    return S_OK;
}

HRESULT CallerIdentity::RevertToSelf() {
    if (!::RevertToSelf()) {
        return HRESULT_FROM_WIN32(GetLastError());
    }
    impersonating_ = FALSE;
    return S_OK;
}

ServedCall::ServedCall(SECURITY_IMPERSONATION_LEVEL level)
    : caller_(windows::MakeObject<CallerIdentity>(level)) {
    const HRESULT result = CoSwitchCallContext(caller_.Get(), &outer_);
    windows::ThrowIfFailed(result);
}

ServedCall::~ServedCall() {
    if (caller_->IsImpersonating()) {
        caller_->RevertToSelf();
    }
    // CoSwitchCallContext counts no references: it neither keeps the outer context nor releases
    // this one.
    IUnknown* own = nullptr;
    CoSwitchCallContext(outer_, &own);
}

}  // namespace qv::service
