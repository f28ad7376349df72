#pragma once

#include <windows.h>

#include <chrono>

#include "platform/windows/Handle.h"
#include "qvsata/hosting/substitutes/ImportPatch.h"

namespace qv::service {

/// Signals the end of each cycle of the library's monitor thread and holds the thread there until
/// LetGo or Hurry. Meanwhile the machine can be exchanged for another recording, so no cycle sees
/// two. A cycle is over when the thread calls Sleep for a second or more; after LetGo it sleeps for
/// the full time.
///
/// For one monitor thread and at most one object per process. The library's threads must have ended
/// before the object is destroyed.
class MonitorPauses {
public:
    explicit MonitorPauses(HMODULE library);
    MonitorPauses(const MonitorPauses&) = delete;
    MonitorPauses& operator=(const MonitorPauses&) = delete;

    /// Returns an event that is signalled once for each finished cycle.
    HANDLE CycleOver() const;

    /// Returns the length of the thread's sleep.
    std::chrono::milliseconds Length() const;

    /// Lets the thread sleep and then start its next cycle.
    void LetGo();

    /// Lets the thread start its next cycle without its sleep.
    void Hurry();

private:
    ImportPatch patch_;
};

}  // namespace qv::service
