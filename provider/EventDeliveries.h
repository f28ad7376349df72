#pragma once

#include <mutex>
#include <string>

#include "events/AlertIndication.h"
#include "events/CSATAHBA_EVENTS.h"
#include "log/ProviderLog.h"
#include "platform/windows/ComObject.h"
#include "provider/EventDelivery.h"

namespace qv::provider {

/// How the event provider objects of the process deliver: hands each event of the monitor to the
/// live one, the one made last of those that were asked for events and still exist. Without one, or
/// when it was never initialised, the event is dropped. Any thread may call any operation, Receive
/// those of the monitor only (MonitorThreads).
class EventDeliveries final : public EventReceiver {
public:
    /// A provider object's place among the others. It belongs to the object, is listed from Add to
    /// Remove and is read and changed by this class only meanwhile.
    struct Place {
        EventDelivery delivery;
        Place* older = nullptr;
    };

    /// All of them outlive the object. `guard` is held for a few copies at a time.
    EventDeliveries(std::mutex& guard, const AlertSources& sources, ProviderLog& log)
        : guard_(guard), sources_(sources), log_(log) {}

    void Add(Place& newest) noexcept;
    void Remove(Place& place) noexcept;

    /// Changes where a provider object's events come from and go to. What was there goes when the
    /// guard is free again: that is code of somebody else.
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
