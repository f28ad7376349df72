#include "provider/ClientImpersonation.h"

#include <objbase.h>
#include <wbemcli.h>

#include "platform/windows/Handle.h"
#include "platform/windows/WbemStatus.h"

namespace qv::provider {
namespace {

HRESULT FromLastError() {
    return static_cast<HRESULT>(0x80070000U | GetLastError());
}

// Reads the impersonation level of the thread's token as COM numbers the levels: one higher.
HRESULT ReadLevel(DWORD& level) {
    HANDLE opened = nullptr;
    if (!OpenThreadToken(GetCurrentThread(), TOKEN_QUERY, TRUE, &opened)) {
        return FromLastError();
    }
    const windows::KernelHandle token(opened);
    SECURITY_IMPERSONATION_LEVEL tokenLevel{};
    DWORD size = 0;
    if (!GetTokenInformation(token.Get(), TokenImpersonationLevel, &tokenLevel, sizeof tokenLevel,
                             &size)) {
        return FromLastError();
    }
    switch (tokenLevel) {
        case SecurityAnonymous:
            level = RPC_C_IMP_LEVEL_ANONYMOUS;
            return S_OK;
        case SecurityIdentification:
            level = RPC_C_IMP_LEVEL_IDENTIFY;
            return S_OK;
        case SecurityImpersonation:
            level = RPC_C_IMP_LEVEL_IMPERSONATE;
            return S_OK;
        case SecurityDelegation:
            level = RPC_C_IMP_LEVEL_DELEGATE;
            return S_OK;
    }
    return static_cast<HRESULT>(0x8007FFFFU);
}

HRESULT Impersonate() {
    HRESULT result = CoImpersonateClient();
    if (FAILED(result)) {
        return result;
    }
    DWORD level = RPC_C_IMP_LEVEL_ANONYMOUS;
    result = ReadLevel(level);
    const HRESULT reverted = CoRevertToSelf();
    if (FAILED(result)) {
        return result;
    }
    if (FAILED(reverted)) {
        return reverted;
    }
    return level >= RPC_C_IMP_LEVEL_IMPERSONATE ? CoImpersonateClient()
                                                : windows::Hr(WBEM_E_ACCESS_DENIED);
}

}  // namespace

ClientImpersonation::ClientImpersonation() : status_(Impersonate()) {}

ClientImpersonation::~ClientImpersonation() {
    if (SUCCEEDED(status_)) {
        CoRevertToSelf();
    }
}

}  // namespace qv::provider
