#pragma once

#include <atomic>
#include <chrono>

#include "events/DiskChanges.h"
#include "platform/Clock.h"
#include "platform/LogPort.h"
#include "source/DiskInventory.h"
#include "source/InstanceRecord.h"

namespace qv {

/// The receiver of events.
class EventReceiver {
public:
    virtual ~EventReceiver() = default;

    /// Takes an event of QV_SATADeviceIndication (BuildDeviceIndication). The monitor ignores
    /// whether it is delivered. Called on the monitor's threads, concurrently.
    virtual void Receive(const InstanceRecord& event) = 0;
};

/// The monitor of disk events. It compares the disks of the inventory with those of the previous
/// cycle and raises an event for each change. One object serves the whole process. It has no thread
/// of its own: a caller's thread runs RunCycle repeatedly with a pause of `interval`. Several
/// threads may do so at once; they share the two lists of disks, so a cycle of one thread may
/// report or miss a change that happened in a cycle of another.
///
/// No lock is held while an event is delivered. Exceptions of the disk inventory and of the
/// comparison reach the caller; the next cycle finds the changes of such a cycle.
/// An exception while an event is built or delivered loses that event; one while a log line is
/// written loses the line.
class CSATAHBA_EVENTS {
public:
    /// The pause between cycles, whatever refresh timeout is configured.
    static constexpr std::chrono::milliseconds interval{30000};

    /// All arguments must outlive the object. Lines are written while the log's level is below 4.
    CSATAHBA_EVENTS(DiskInventory& inventory, const platform::Clock& clock, platform::LogPort& log)
        : inventory_(inventory), clock_(clock), log_(log) {}

    /// Sets the receiver of events, which must outlive the object. Until the first call events are
    /// dropped.
    void RegisterReceiver(EventReceiver& receiver) { receiver_ = &receiver; }

    /// Returns whether a cycle was ever started.
    bool Running() const { return running_; }

    /// Runs one cycle: keeps the disks as the previous ones, rebuilds the inventory and checks for
    /// events. If a source query fails, the disks stay as they were, and the next cycle whose
    /// queries succeed finds the changes.
    void RunCycle();

    /// Rebuilds the inventory once more, so that the comparison uses disks that are as recent as
    /// possible, and raises an event for each change. Returns 0.
    int EventThreadCheckforEvents();

    /// Logs that a thread that runs cycles is being ended.
    void LogThreadExit() const noexcept;

private:
    void Raise(const DiskChange& change) const;
    void Log(std::string_view function, std::string_view message) const noexcept;

    DiskInventory& inventory_;
    const platform::Clock& clock_;
    platform::LogPort& log_;
    std::atomic<EventReceiver*> receiver_ = nullptr;
    std::atomic<bool> running_ = false;
    std::atomic<bool> isComparisonDue_ = false;  ///< whether a cycle began and has not compared
};

}  // namespace qv
