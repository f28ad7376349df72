#pragma once

#include <wbemcli.h>
#include <windows.h>

#include "platform/windows/Bstr.h"
#include "platform/windows/ComObject.h"
#include "platform/windows/WbemStatus.h"

namespace qv::provider {

/// The class __ExtendedStatus of a namespace, with which a provider can say more of an error than a
/// code; fetched with the caller's context when the object is made.
class ExtendedStatus {
public:
    ExtendedStatus(IWbemServices* services, IWbemContext* context) {
        if (services == nullptr) {
            status_ = windows::Hr(WBEM_E_INVALID_PARAMETER);
            return;
        }
        windows::Bstr name;
        *name.Receive() = SysAllocString(L"__ExtendedStatus");
        status_ = name.Get() == nullptr
                      ? windows::Hr(WBEM_E_OUT_OF_MEMORY)
                      : services->GetObject(name.Get(), 0, context, &definition_, nullptr);
    }

    /// How the fetching went.
    HRESULT Status() const { return status_; }

private:
    HRESULT status_ = windows::Hr(WBEM_E_FAILED);
    windows::ComPtr<IWbemClassObject> definition_;
};

}  // namespace qv::provider
