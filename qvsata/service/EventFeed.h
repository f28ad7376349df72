#pragma once

#include <chrono>
#include <stop_token>

#include "qvsata/cim/Object.h"

namespace qv::service {

/// The events of a provider, one cycle of its monitor at a time. After a cycle the monitor is held
/// until LetGo or Hurry. Meanwhile the machine can be exchanged for another recording, so no cycle
/// sees two. For one thread.
class EventFeed {
public:
    /// The reason why a wait ended.
    enum class News { cycleOver, stopRequested, timeOut };

    virtual ~EventFeed() = default;

    /// Waits for the end of a cycle, for a request to stop, or until the time `longest` is over.
    virtual News Await(std::chrono::milliseconds longest, const std::stop_token& stop) = 0;

    /// Returns the indications delivered since the last call.
    virtual ObjectList Take() = 0;

    /// Returns how long the monitor pauses before its next cycle.
    virtual std::chrono::milliseconds Pause() const = 0;

    /// Lets the monitor pause and then start its next cycle.
    virtual void LetGo() = 0;

    /// Lets the monitor start its next cycle at once.
    virtual void Hurry() = 0;

    /// Ends the subscription. Indications delivered before can still be taken.
    virtual void End() = 0;
};

}  // namespace qv::service
