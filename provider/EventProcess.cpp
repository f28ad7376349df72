#include "provider/EventProcess.h"

#include "platform/windows/KernelMutex.h"
#include "platform/windows/SystemClock.h"
#include "platform/windows/WindowsHostFacts.h"
#include "platform/windows/WmiQueryPort.h"
#include "source/LoggedQueryPort.h"

namespace qv::provider {
namespace {

std::mutex eventGuard;
LentLog monitorLog;

const windows::WmiQueryPort service;
const LoggedQueryPort queries(service, monitorLog);
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

LentLog& ProcessMonitorLog() {
    return monitorLog;
}

}  // namespace qv::provider
