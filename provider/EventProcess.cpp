#include "provider/EventProcess.h"

#include <utility>

#include "platform/windows/KernelMutex.h"
#include "platform/windows/SystemClock.h"
#include "platform/windows/WindowsHostFacts.h"
#include "platform/windows/WmiQueryPort.h"

namespace qv::provider {
namespace {

std::mutex eventGuard;
MonitorLog monitorLog;

const windows::WmiQueryPort queries;
const windows::WindowsHostFacts host;
const windows::SystemClock clock;
windows::KernelMutex inventoryLock(L"DiskDriveListCurrMutex");
DiskInventory inventory(queries, host, clock, inventoryLock);
CSATAHBA_EVENTS monitor(inventory, clock, monitorLog);

}  // namespace

DiskInventory& ProcessInventory() {
    return inventory;
}

CSATAHBA_EVENTS& ProcessMonitor() {
    return monitor;
}

std::mutex& EventGuard() {
    return eventGuard;
}

MonitorLog& ProcessMonitorLog() {
    return monitorLog;
}

void MonitorLog::Attach(std::shared_ptr<const LegacyLog> log, int level) {
    const std::lock_guard guard(eventGuard);
    log_.swap(log);
    level_ = level;
}

void MonitorLog::Write(int level, std::string_view text) {
    std::shared_ptr<const LegacyLog> log;
    {
        const std::lock_guard guard(eventGuard);
        log = log_;
    }
    if (log != nullptr) {
        log->CommonLogEntry(text, static_cast<std::uint32_t>(level));
    }
}

}  // namespace qv::provider
