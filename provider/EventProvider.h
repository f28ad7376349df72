#pragma once

#include <wbemcli.h>
#include <wbemprov.h>
#include <windows.h>

#include <memory>
#include <mutex>

#include "events/CSATAHBA_EVENTS.h"
#include "log/ProviderLog.h"
#include "platform/QueryPort.h"
#include "platform/windows/ComObject.h"
#include "provider/EventDeliveries.h"
#include "provider/ExtendedStatus.h"
#include "provider/LentLog.h"
#include "provider/Module.h"
#include "provider/MonitorThreads.h"
#include "source/DiskInventory.h"

namespace qv::provider {

/// The event provider. The management service creates it when a client subscribes to
/// QV_SATADeviceIndication. It calls Initialize first, then any operation on any of its threads.
/// Each ProvideEvents starts one monitor thread (CSATAHBA_EVENTS). Events of all threads are
/// delivered through the newest provider object (EventDeliveries). The last reference may be
/// released on any thread, also inside a delivery; the object's threads end with it
/// (MonitorThreads).
class CQVWMISATA_EventProv
    : public windows::ComObject<IWbemEventProviderSecurity, IWbemProviderInit, IWbemEventProvider> {
public:
    /// What the event provider objects of the process share. All of it outlives them.
    struct Shared {
        ProviderLog& log;
        LentLog& monitorLog;
        const platform::QueryPort& service;
        DiskInventory& inventory;
        CSATAHBA_EVENTS& monitor;
        EventDeliveries& deliveries;
        std::mutex& guard;  ///< of the deliveries' references
    };

    explicit CQVWMISATA_EventProv(const Shared& shared);

    /// Allows every subscription.
    STDMETHODIMP AccessCheck(WBEM_CWSTR queryLanguage, WBEM_CWSTR query, long sidLength,
                             const BYTE* sid) override;

    STDMETHODIMP Initialize(LPWSTR user, LONG flags, LPWSTR nameSpace, LPWSTR locale,
                            IWbemServices* services, IWbemContext* context,
                            IWbemProviderInitSink* initSink) override;

    /// Each call starts one more thread, on purpose.
    STDMETHODIMP ProvideEvents(IWbemObjectSink* sink, long flags) override;

private:
    ~CQVWMISATA_EventProv() override;

    struct Definitions {
        windows::ComPtr<IWbemClassObject> indication;
        std::unique_ptr<ExtendedStatus> extendedStatus;
    };

    HRESULT FetchDefinitions(IWbemServices& services, IWbemContext* context, Definitions& fetched);
    void TakeRefreshTimeout() const;

    ModuleReference module_;  // outlives the other members
    const Shared& shared_;
    EventDeliveries::Place place_;
    Definitions definitions_;
    std::shared_ptr<const LegacyLog> legacyLog_;
    MonitorThreads threads_;
};

}  // namespace qv::provider
