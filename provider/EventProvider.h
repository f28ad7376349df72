#pragma once

#include <wbemcli.h>
#include <wbemprov.h>
#include <windows.h>

#include <memory>

#include "platform/windows/ComObject.h"
#include "provider/EventDelivery.h"
#include "provider/ExtendedStatus.h"
#include "provider/Module.h"
#include "provider/MonitorThreads.h"
#include "wmiUtil/LegacyLog.h"

namespace qv::provider {

/// The event provider. The management service creates it when somebody subscribes to
/// QV_SATADeviceIndication, initialises it and asks it for events: it starts a thread of the disk
/// monitor (CSATAHBA_EVENTS) for each time it is asked. What the monitor raises, on whichever
/// thread, is delivered by the live provider object: the one made last of those that were asked
/// for events and still exist. Initialize comes first; then the service may call any operation on
/// any of its threads. The last reference may be given back on any thread, inside a delivery too;
/// the threads of the object end with it (MonitorThreads).
class CQVWMISATA_EventProv
    : public windows::ComObject<IWbemEventProviderSecurity, IWbemProviderInit, IWbemEventProvider> {
public:
    CQVWMISATA_EventProv();

    /// Everybody may subscribe to everything.
    STDMETHODIMP AccessCheck(WBEM_CWSTR queryLanguage, WBEM_CWSTR query, long sidLength,
                             const BYTE* sid) override;

    STDMETHODIMP Initialize(LPWSTR user, LONG flags, LPWSTR nameSpace, LPWSTR locale,
                            IWbemServices* services, IWbemContext* context,
                            IWbemProviderInitSink* initSink) override;

    /// Each call starts one more thread, on purpose.
    STDMETHODIMP ProvideEvents(IWbemObjectSink* sink, long flags) override;

    /// Copies what it takes to deliver an event now; leaves `taken`, which is empty, as it is when
    /// no provider object can.
    static void TakeLiveDelivery(EventDelivery& taken);

private:
    ~CQVWMISATA_EventProv() override;

    struct Definitions {
        windows::ComPtr<IWbemClassObject> indication;
        std::unique_ptr<ExtendedStatus> extendedStatus;
    };

    HRESULT FetchDefinitions(IWbemServices& services, IWbemContext* context, Definitions& fetched);

    /// Changes the sink. The former one goes when the guard is free again: that is code of somebody
    /// else.
    void KeepSink(windows::ComPtr<IWbemObjectSink> sink);

    ModuleReference module_;  // until all else is gone

    // The live provider object is the first from newest_ on that has a sink. Both, and the
    // delivery, under EventGuard().
    static CQVWMISATA_EventProv* newest_;
    CQVWMISATA_EventProv* older_ = nullptr;
    EventDelivery delivery_;

    Definitions definitions_;
    std::shared_ptr<const LegacyLog> legacyLog_;
    MonitorThreads threads_;
};

}  // namespace qv::provider
