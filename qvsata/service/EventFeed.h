#pragma once

#include <chrono>

#include "qvsata/cim/Object.h"

namespace qv::service {

/// The events of a provider, cycle by cycle of its monitor. After a cycle the monitor is held until
/// it is let go: what stands for the machine can be exchanged meanwhile, and no cycle sees two
/// machines. One thread.
class EventFeed {
public:
    /// What ended a wait.
    enum class News { cycleOver, stopRequested, timeOut };

    virtual ~EventFeed() = default;

    /// Waits for the end of a cycle, at most so long.
    virtual News Await(std::chrono::milliseconds longest) = 0;

    /// Returns the indications that were delivered since it was asked last.
    virtual ObjectList Take() = 0;

    /// Returns how long the monitor pauses before its next cycle.
    virtual std::chrono::milliseconds Pause() const = 0;

    /// Lets the monitor pause, and then go on to its next cycle.
    virtual void LetGo() = 0;

    /// Ends the subscription. What was delivered can still be taken.
    virtual void End() = 0;
};

}  // namespace qv::service
