#pragma once

#include <windows.h>

#include <wbemcli.h>

#include "platform/windows/ComObject.h"
#include "platform/windows/Handle.h"
#include "qvsata/cim/Object.h"

namespace qv::service {

/// Keeps what an event provider delivers until somebody takes it. Any thread may deliver. Those
/// that do may be ended by force wherever they stand: the lock here is one that passes on when its
/// owner dies, and once the sink is closed they leave the objects alone.
class IndicationSink final : public windows::ComObject<IWbemObjectSink> {
public:
    STDMETHODIMP Indicate(LONG count, IWbemClassObject** objects) override;
    /// What a provider reports of its subscription as such is not kept.
    STDMETHODIMP SetStatus(LONG flags, HRESULT status, BSTR text,
                           IWbemClassObject* object) override;

    /// What was delivered since it was asked last, in the order of the deliveries.
    ObjectList Take();

    /// From now on deliveries are refused with WBEM_E_CALL_CANCELLED.
    void Close();

private:
    windows::KernelHandle mutex_{CreateMutexW(nullptr, FALSE, nullptr)};
    ObjectList objects_;
    bool closed_ = false;
};

}  // namespace qv::service
