#pragma once

#include <atomic>
#include <chrono>

#include "events/DiskChanges.h"
#include "platform/Clock.h"
#include "platform/LogPort.h"
#include "source/DiskInventory.h"
#include "source/InstanceRecord.h"

namespace qv {

/// Who is told of an event.
class EventReceiver {
public:
    virtual ~EventReceiver() = default;

    /// Takes an event of QV_SATADeviceIndication (BuildDeviceIndication). What becomes of it is no
    /// matter for the one who raised it. Called on the monitor's threads, several at once.
    virtual void Receive(const InstanceRecord& event) = 0;
};

/// The monitor of disk events: compares the disks of the inventory with those of the previous cycle
/// and raises an event for each change. One object serves the whole process. It owns no thread:
/// whoever does runs RunCycle over and over with a pause of `interval` between. Several threads may
/// do so at once; they work on the same two lists, so that a cycle of one may find, or miss, what
/// happened in a cycle of another.
///
/// While an event is handed over nothing is locked. What the disk inventory raises passes through.
/// An exception while an event is built or handed over costs that event, one while a line is
/// written costs the line.
class CSATAHBA_EVENTS {
public:
    /// The pause between cycles, whatever refresh time-out is configured.
    static constexpr std::chrono::milliseconds interval{30000};

    /// All of them outlive the object. Lines are written while the log's level is below 4.
    CSATAHBA_EVENTS(DiskInventory& inventory, const platform::Clock& clock, platform::LogPort& log)
        : inventory_(inventory), clock_(clock), log_(log) {}

    /// From now on `receiver`, which outlives the object, is told of the events; until the first
    /// call nobody is.
    void RegisterReceiver(EventReceiver& receiver) { receiver_ = &receiver; }

    /// Whether a cycle was ever begun.
    bool Running() const { return running_; }

    /// One cycle: makes the disks the previous ones, finds them anew and checks for events. Where
    /// a source query fails the disks stay what they were, and what happened to them meanwhile is
    /// found in the next cycle in which it does not.
    void RunCycle();

    /// Finds the disks anew once more, so that as little as possible lies between that and the
    /// comparison, and raises an event for each change. Always 0.
    int EventThreadCheckforEvents();

    /// Logs that a thread which runs cycles is being ended.
    void LogThreadExit() const noexcept;

private:
    void Raise(const DiskChange& change) const;
    void Log(std::string_view function, std::string_view message) const noexcept;

    DiskInventory& inventory_;
    const platform::Clock& clock_;
    platform::LogPort& log_;
    std::atomic<EventReceiver*> receiver_ = nullptr;
    std::atomic<bool> running_ = false;
};

}  // namespace qv
