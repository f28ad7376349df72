#pragma once

#include <mutex>
#include <string>

#include "events/AlertIndication.h"
#include "events/CSATAHBA_EVENTS.h"
#include "log/ProviderLog.h"
#include "platform/windows/ComObject.h"
#include "provider/EventDelivery.h"

namespace qv::provider {

/// Passes each event of the monitor to the newest provider object that was asked for events. Drops
/// it if there is none, or if that object was never initialised. Any thread may call any operation;
/// only the monitor's threads (MonitorThreads) call Receive.
class EventDeliveries final : public EventReceiver {
public:
    /// A provider object's entry in the list. It belongs to the object and is listed from Add to
    /// Remove; meanwhile only this class reads and changes it.
    struct Place {
        EventDelivery delivery;
        Place* older = nullptr;
    };

    /// All arguments must outlive the object. `guard` is held only while a few references are
    /// copied.
    EventDeliveries(std::mutex& guard, const AlertSources& sources, ProviderLog& log)
        : guard_(guard), sources_(sources), log_(log) {}

    void Add(Place& newest) noexcept;
    void Remove(Place& place) noexcept;

    /// Sets where a provider object's events come from and go to. Releases the previous references
    /// after unlocking: Release runs foreign code.
    void SetNamespace(Place& place, windows::ComPtr<IWbemServices> services, std::wstring prefix);
    void SetSink(Place& place, windows::ComPtr<IWbemObjectSink> sink);

    void Receive(const InstanceRecord& event) override;

private:
    void TakeLive(EventDelivery& taken) const;

    std::mutex& guard_;
    AlertSources sources_;
    ProviderLog& log_;
    Place* newest_ = nullptr;
};

}  // namespace qv::provider
