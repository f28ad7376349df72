#include "qvsata/linked/LinkedEvents.h"

#include <algorithm>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <utility>

#include "events/DeviceIndication.h"
#include "qvsata/cim/Instance.h"
#include "qvsata/cim/Utf8.h"
#include "qvsata/linked/InstanceTarget.h"
#include "source/HostIdentity.h"

namespace qv::service {
namespace {

/// Waits for a request to stop, at most for the time `longest`. Returns whether it was made.
bool WaitForStop(const std::stop_token& stop, std::chrono::milliseconds longest) {
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any().wait_for(lock, stop, longest, [] { return false; });
    return stop.stop_requested();
}

}  // namespace

LinkedEvents::LinkedEvents(const Namespace& nameSpace, Connector machine, ComputerNames names)
    : nameSpace_(nameSpace),
      queries_(std::move(machine)),
      host_(std::move(names)),
      namespacePrefix_(ToUtf8(BuildNamespacePrefix(queries_, ToWide(nameSpace.Name()), {}))) {
    inventory_.RefreshDiskInventoryIfStale(monitor_.Running());
    monitor_.RegisterReceiver(*this);
}

EventFeed::News LinkedEvents::Await(std::chrono::milliseconds longest,
                                    const std::stop_token& stop) {
    using std::chrono::milliseconds;
    const auto left = std::chrono::ceil<milliseconds>(due_ - SteadyClock::now());
    const milliseconds wait = std::clamp(left, milliseconds(0), longest);
    if (WaitForStop(stop, wait)) {
        return News::stopRequested;
    }
    if (left > longest) {
        return News::timeOut;
    }
    monitor_.RunCycle();
    return News::cycleOver;
}

ObjectList LinkedEvents::Take() {
    return std::exchange(delivered_, {});
}

void LinkedEvents::LetGo() {
    due_ = SteadyClock::now() + Pause();
}

void LinkedEvents::Receive(const InstanceRecord& event) {
    const ResolvedClassPtr type = nameSpace_.Classes().Find(event.className);
    if (!type || EventIdOf(event).empty()) {
        return;
    }
    auto indication = std::make_shared<Instance>(type);
    InstanceTarget target(*indication, namespacePrefix_);
    if (Succeeded(FillDeviceIndication(target, event, {queries_, host_, system_, clock_}))) {
        delivered_.push_back(std::move(indication));
    }
}

}  // namespace qv::service
