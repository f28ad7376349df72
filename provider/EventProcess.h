#pragma once

#include <mutex>

#include "events/CSATAHBA_EVENTS.h"
#include "provider/LentLog.h"
#include "source/DiskInventory.h"

namespace qv::provider {

// What the event providers of the process share, there from the loading of the library to its
// unloading.

DiskInventory& ProcessInventory();
CSATAHBA_EVENTS& ProcessMonitor();

/// Guards what the monitor's threads read of the provider objects. Held for a few copies at a time;
/// a std::mutex, which is locked for ever when a thread dies inside it, does because whoever ends
/// such a thread holds it while it stops the thread.
std::mutex& EventGuard();

/// The log of the monitor.
LentLog& ProcessMonitorLog();

}  // namespace qv::provider
