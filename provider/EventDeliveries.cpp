#include "provider/EventDeliveries.h"

#include <exception>
#include <utility>

#include "provider/MonitorThreads.h"

namespace qv::provider {
namespace {

/// Releases the interfaces of the calling thread's delivery after unlocking: Release runs foreign
/// code.
class DeliveryEnd {
public:
    explicit DeliveryEnd(std::mutex& guard) : guard_(guard) {}
    DeliveryEnd(const DeliveryEnd&) = delete;
    DeliveryEnd& operator=(const DeliveryEnd&) = delete;
    ~DeliveryEnd() {
        EventDelivery over;
        const std::lock_guard held(guard_);
        std::swap(over, MonitorThreads::InFlight());
    }

private:
    std::mutex& guard_;
};

}  // namespace

void EventDeliveries::Add(Place& newest) noexcept {
    const std::lock_guard held(guard_);
    newest.older = std::exchange(newest_, &newest);
}

void EventDeliveries::Remove(Place& place) noexcept {
    const std::lock_guard held(guard_);
    Place** link = &newest_;
    while (*link != &place) {
        link = &(*link)->older;
    }
    *link = place.older;
}

void EventDeliveries::SetNamespace(Place& place, windows::ComPtr<IWbemServices> services,
                                   std::wstring prefix) {
    const std::lock_guard held(guard_);
    place.delivery.services.Swap(services);
    place.delivery.namespacePrefix.swap(prefix);
}

void EventDeliveries::SetSink(Place& place, windows::ComPtr<IWbemObjectSink> sink) {
    const std::lock_guard held(guard_);
    place.delivery.sink.Swap(sink);
}

/// Copies what a delivery needs to `taken`, which must be empty. Leaves it empty if no provider
/// object can deliver.
void EventDeliveries::TakeLive(EventDelivery& taken) const {
    const std::lock_guard held(guard_);
    const Place* live = newest_;
    while (live != nullptr && !live->delivery.sink) {
        live = live->older;
    }
    if (live != nullptr) {
        taken = live->delivery;
    }
}

void EventDeliveries::Receive(const InstanceRecord& event) try {
    EventDelivery& delivery = MonitorThreads::InFlight();
    const DeliveryEnd end(guard_);
    TakeLive(delivery);
    if (delivery.sink && delivery.services) {
        delivery.SendIndication(event, sources_, log_);
    }
} catch (const std::exception&) {
    // This event is lost; later events are not.
}

}  // namespace qv::provider
