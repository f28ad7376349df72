#pragma once

#include <wbemcli.h>
#include <wbemprov.h>
#include <windows.h>

#include <memory>
#include <mutex>
#include <utility>

#include "platform/windows/ComObject.h"
#include "provider/EventDelivery.h"
#include "provider/EventProcess.h"
#include "provider/ExtendedStatus.h"
#include "provider/Module.h"
#include "provider/MonitorThread.h"
#include "wmiUtil/LegacyLog.h"

namespace qv::provider {

/// The event provider. The management service creates it when somebody subscribes to
/// QV_SATADeviceIndication, initialises it and asks it for events: it starts a thread of the disk
/// monitor (CSATAHBA_EVENTS) for each time it is asked. What the monitor raises, on whichever
/// thread, is delivered by the live provider object: the one made last of those that were asked
/// for events and still exist. Initialize comes first; then the service may call any operation on
/// any of its threads. A sink does not release the last reference inside Indicate: the thread that
/// delivers would have to end itself.
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

    /// What it takes to deliver an event now; without a sink when no provider object can.
    static EventDelivery LiveDelivery();

private:
    ~CQVWMISATA_EventProv() override;

    HRESULT FetchDefinitions(IWbemServices& services, IWbemContext* context);

    /// Changes what is delivered with. What was there goes when the guard is free again: it is
    /// released, which is code of somebody else.
    template <typename Member, typename Value>
    void Keep(Member EventDelivery::*member, Value&& value) {
        Member kept(std::forward<Value>(value));
        const std::lock_guard guard(EventGuard());
        std::swap(delivery_.*member, kept);
    }

    ModuleReference module_;  // until all else is gone

    // The live provider object is the first from newest_ on that has a sink. Both, and the
    // delivery, under EventGuard().
    static CQVWMISATA_EventProv* newest_;
    CQVWMISATA_EventProv* older_ = nullptr;
    EventDelivery delivery_;

    windows::ComPtr<IWbemClassObject> definition_;
    std::unique_ptr<ExtendedStatus> extendedStatus_;
    std::shared_ptr<const LegacyLog> legacyLog_;
    MonitorThreads threads_;
};

}  // namespace qv::provider
