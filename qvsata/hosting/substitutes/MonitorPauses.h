#pragma once

#include <windows.h>

#include <chrono>

#include "platform/windows/Handle.h"
#include "qvsata/hosting/substitutes/ImportPatch.h"

namespace qv::service {

/// Tells when a monitor thread of the provider's library has done a cycle, and holds it there until
/// it is let go: what stands for the machine can be exchanged meanwhile and no cycle sees two
/// machines. A cycle is over when the thread begins to sleep for a second or more, which it does
/// in full once it is let go.
///
/// For one thread of the library that does so, and one object at a time in a process. The library's
/// threads have ended when the object goes.
class MonitorPauses {
public:
    explicit MonitorPauses(HMODULE library);
    MonitorPauses(const MonitorPauses&) = delete;
    MonitorPauses& operator=(const MonitorPauses&) = delete;

    /// A kernel object that is signalled once for each cycle that is over.
    HANDLE CycleOver() const;

    /// How long the thread is going to sleep.
    std::chrono::milliseconds Length() const;

    /// Lets the thread sleep, and then go on to its next cycle.
    void LetGo();

private:
    ImportPatch patch_;
};

}  // namespace qv::service
