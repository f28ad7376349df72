#include "qvsata/hosting/HostedEvents.h"

#include <algorithm>

namespace qv::service {

HostedEvents::HostedEvents(const ManagementHost& host)
    : pauses_(host.ProviderModule()), subscription_(host) {}

EventFeed::News HostedEvents::Await(std::chrono::milliseconds longest,
                                    const std::stop_token& stop) {
    // Looks at the token from time to time: with a std::stop_callback a wait hung now and then
    // after a request from another thread (seen under Wine, libstdc++ 12).
    using std::chrono::milliseconds;
    constexpr milliseconds slice(100);
    for (milliseconds left = longest;; left -= slice) {
        if (stop.stop_requested()) {
            return News::stopRequested;
        }
        const milliseconds wait = std::clamp(left, milliseconds(0), slice);
        if (WaitForSingleObject(pauses_.CycleOver(), static_cast<DWORD>(wait.count())) ==
            WAIT_OBJECT_0) {
            return News::cycleOver;
        }
        if (left <= slice) {
            return News::timeOut;
        }
    }
}

}  // namespace qv::service
