#include "qvsata/linked/LinkedEvents.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "events/AlertIndication.h"
#include "qvsata/cim/Instance.h"
#include "qvsata/cim/Utf8.h"
#include "qvsata/linked/RecordPut.h"
#include "qvsata/system/StopRequest.h"
#include "source/HostIdentity.h"

namespace qv::service {
namespace {

class InstanceTarget final : public PropertyTarget {
public:
    InstanceTarget(Instance& instance, std::string_view namespacePrefix)
        : instance_(instance), namespacePrefix_(namespacePrefix) {}

    Status Put(const PropertyEntry& property) override {
        return PutEntry(instance_, property, namespacePrefix_);
    }
    Status PutWideText(std::string_view name, std::wstring_view text) override {
        return Put({std::string(name), ToUtf8(text), PropertyType::string, false});
    }

private:
    Instance& instance_;
    std::string_view namespacePrefix_;
};

}  // namespace

LinkedEvents::LinkedEvents(const Namespace& nameSpace, Connector machine, ComputerNames names)
    : nameSpace_(nameSpace),
      queries_(std::move(machine)),
      host_(std::move(names)),
      namespacePrefix_(ToUtf8(BuildNamespacePrefix(queries_, ToWide(nameSpace.Name()), {}))) {
    inventory_.RefreshDiskInventoryIfStale(monitor_.Running());
    monitor_.RegisterReceiver(*this);
}

EventFeed::News LinkedEvents::Await(std::chrono::milliseconds longest) {
    using std::chrono::milliseconds;
    const auto left = std::chrono::ceil<milliseconds>(due_ - SteadyClock::now());
    const milliseconds wait = std::clamp(left, milliseconds(0), longest);
    if (tool::WaitForStop(wait)) {
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
    const std::string eventId = GetPropertyEntry(event, "EventID").value;
    if (!type || eventId.empty()) {
        return;
    }
    auto indication = std::make_shared<Instance>(type);
    InstanceTarget target(*indication, namespacePrefix_);
    if (!Succeeded(
            FillCommonProperties(target, "QV SATA", eventId, {queries_, host_, system_, clock_}))) {
        return;
    }
    InstanceRecord own = event;
    std::erase_if(own.properties,
                  [](const PropertyEntry& property) { return property.name == "EventID"; });
    PutRecord(*indication, own, namespacePrefix_);
    delivered_.push_back(std::move(indication));
}

}  // namespace qv::service
