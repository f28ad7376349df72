#include "qvsata/hosting/HostedEvents.h"

#include <array>

#include "platform/windows/Handle.h"

namespace qv::service {

HostedEvents::HostedEvents(const ManagementHost& host)
    : pauses_(host.ProviderModule()), subscription_(host) {}

EventFeed::News HostedEvents::Await(std::chrono::milliseconds longest,
                                    const std::stop_token& stop) {
    const windows::KernelHandle stopped(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    const std::stop_callback onStop(stop, [&stopped] { SetEvent(stopped.Get()); });
    const std::array<HANDLE, 2> news{stopped.Get(), pauses_.CycleOver()};
    switch (WaitForMultipleObjects(news.size(), news.data(), FALSE,
                                   static_cast<DWORD>(longest.count()))) {
        case WAIT_OBJECT_0:
            return News::stopRequested;
        case WAIT_TIMEOUT:
            return News::timeOut;
        default:
            return News::cycleOver;
    }
}

}  // namespace qv::service
