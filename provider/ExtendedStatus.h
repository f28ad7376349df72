#pragma once

#include <wbemcli.h>
#include <windows.h>

#include "platform/windows/Bstr.h"
#include "platform/windows/ComObject.h"
#include "platform/windows/WbemStatus.h"

namespace qv::provider {

/// The class __ExtendedStatus, which describes an error in more detail than a code. It is fetched
/// from the namespace, with the caller's context, on construction.
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

    /// The status of the fetch.
    HRESULT Status() const { return status_; }

private:
    HRESULT status_ = windows::Hr(WBEM_E_FAILED);
    windows::ComPtr<IWbemClassObject> definition_;
};

}  // namespace qv::provider
