#include "events/CSATAHBA_EVENTS.h"

#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "events/DeviceIndication.h"
#include "events/DiskChanges.h"

namespace qv {

void CSATAHBA_EVENTS::RunCycle() {
    running_ = true;
    // Changes that an exception kept a cycle from comparing are compared in the next one.
    if (!isComparisonDue_.exchange(true)) {
        inventory_.KeepDisksAsPrevious();
    }
    inventory_.RefreshDiskInventoryNow();
    EventThreadCheckforEvents();
}

int CSATAHBA_EVENTS::EventThreadCheckforEvents() {
    inventory_.RefreshDiskInventoryNow();
    const std::vector<DiskChange> changes = inventory_.CompareWithPrevious(FindDiskChanges);
    isComparisonDue_ = false;
    for (const DiskChange& change : changes) {
        try {
            Raise(change);
        } catch (const std::exception&) {
            // No later cycle finds the other changes again: only this one is lost.
        }
    }
    return 0;
}

void CSATAHBA_EVENTS::Raise(const DiskChange& change) const {
    const InstanceRecord event = BuildDeviceIndication(change.disk, change.eventId, clock_.Local());
    Log("CSATAHBA_EVENTS::EventThreadCheckforEvents",
        "SendIndication for EventID = " + std::string(change.eventId));
    if (EventReceiver* receiver = receiver_) {
        receiver->Receive(event);
    }
}

void CSATAHBA_EVENTS::LogThreadExit() const noexcept {
    Log("CSATAHBA_EVENTS::EventThreadExit", "EventThreadExit:...");
}

void CSATAHBA_EVENTS::Log(std::string_view function, std::string_view message) const noexcept {
    if (!TakesLines(log_.Level(), LogLevel::information)) {
        return;
    }
    try {
        log_.Write(LogLevel::information, std::string(function).append("| ").append(message));
    } catch (const std::exception&) {
        // A lost line is better than a lost event.
    }
}

}  // namespace qv
