#include "qvsata/hosting/HostedEvents.h"

#include <algorithm>

namespace qv::service {

HostedEvents::HostedEvents(const ManagementHost& host)
    : pauses_(host.ProviderModule()), subscription_(host) {}

EventFeed::News HostedEvents::Await(std::chrono::milliseconds longest,
                                    const std::stop_token& stop) {
    // Looks at the token from time to time: the destructor of a std::stop_callback can wait forever
    // for a callback that has ended on another thread (libstdc++ 12 on winpthreads).
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
