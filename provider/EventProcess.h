#pragma once

#include <atomic>
#include <memory>
#include <mutex>

#include "events/CSATAHBA_EVENTS.h"
#include "log/LogLevel.h"
#include "source/DiskInventory.h"
#include "wmiUtil/LegacyLog.h"

namespace qv::provider {

// What the event providers of the process share, there from the loading of the library to its
// unloading.

DiskInventory& ProcessInventory();
CSATAHBA_EVENTS& ProcessMonitor();

/// Guards what the monitor's threads read of the provider objects. Held for a few copies at a time;
/// a std::mutex, which is locked for ever when a thread dies inside it, does because whoever ends
/// such a thread holds it meanwhile.
std::mutex& EventGuard();

/// The log of the monitor: the legacy log, under the level of the common log. Silent until a
/// provider object, when it is initialised, lends both.
class MonitorLog : public platform::LogPort {
public:
    void Attach(std::shared_ptr<const LegacyLog> log, int level);

    int Level() const override { return level_; }
    void Write(int level, std::string_view text) override;

private:
    std::atomic<int> level_ = static_cast<int>(LogLevel::silent);
    std::shared_ptr<const LegacyLog> log_;
};

MonitorLog& ProcessMonitorLog();

}  // namespace qv::provider
