#pragma once

#include <windows.h>

#include <wbemcli.h>

#include "platform/windows/ComObject.h"
#include "platform/windows/Handle.h"
#include "qvsata/cim/Object.h"

namespace qv::service {

/// Collects what an event provider delivers. Any thread may deliver. A delivering thread may be
/// terminated at any point: the lock is a mutex that passes on when its owner dies, and after Close
/// such threads do not touch the objects.
class IndicationSink final : public windows::ComObject<IWbemObjectSink> {
public:
    STDMETHODIMP Indicate(LONG count, IWbemClassObject** objects) override;
    /// Ignores the status that a provider reports for its subscription.
    STDMETHODIMP SetStatus(LONG flags, HRESULT status, BSTR text,
                           IWbemClassObject* object) override;

    /// Returns what was delivered since the last call, in order.
    ObjectList Take();

    /// Refuses further deliveries with WBEM_E_CALL_CANCELLED.
    void Close();

private:
    windows::KernelHandle mutex_{CreateMutexW(nullptr, FALSE, nullptr)};
    ObjectList objects_;
    bool closed_ = false;
};

}  // namespace qv::service
