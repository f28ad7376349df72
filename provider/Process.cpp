#include "provider/Process.h"

#include <mutex>
#include <new>

#include "catalogue/Catalogue.h"
#include "platform/windows/KernelMutex.h"
#include "platform/windows/SystemClock.h"
#include "platform/windows/WindowsHostFacts.h"
#include "platform/windows/WindowsSystemFacts.h"
#include "platform/windows/WmiQueryPort.h"
#include "source/LoggedQueryPort.h"

namespace qv::provider {
namespace {

/// Everything that the process's provider objects share. It exists from the loading of the library
/// to its unloading and is created, in this order, under the loader lock: the constructors do only
/// bookkeeping.
struct Process {
    ProviderLog log{L"QVWMISATA"};

    /// Guards what the monitor threads read of the provider objects. Held only while a few
    /// references are copied. A std::mutex, which stays locked if its owner dies, is enough:
    /// MonitorThreads holds it while it suspends a thread that it terminates.
    std::mutex guard;

    windows::WmiQueryPort service;
    windows::WindowsHostFacts host;
    windows::WindowsSystemFacts system;
    windows::SystemClock clock;

    LentLog queryLog{guard};
    LoggedQueryPort queries{service, queryLog};
    NativeAPI api{PublishedCatalogue(), queries, host, log};

    LentLog monitorLog{guard};
    LoggedQueryPort monitorQueries{service, monitorLog};
    windows::KernelMutex inventoryLock{L"DiskDriveListCurrMutex", monitorLog};
    DiskInventory inventory{monitorQueries, host, clock, inventoryLock};
    CSATAHBA_EVENTS monitor{inventory, clock, monitorLog};
    EventDeliveries deliveries{guard, {service, host, system, clock}, log};

    CQVWMISATA_InstProv::Shared forInstances{log, queryLog, service, api};
    CQVWMISATA_EventProv::Shared forEvents{log,     monitorLog, service, inventory,
                                           monitor, deliveries, guard};
};

Process process;

}  // namespace

windows::ComPtr<CQVWMISATA_InstProv> MakeInstanceProvider() {
    return windows::Adopt(new (std::nothrow) CQVWMISATA_InstProv(process.forInstances));
}

windows::ComPtr<CQVWMISATA_EventProv> MakeEventProvider() {
    return windows::Adopt(new (std::nothrow) CQVWMISATA_EventProv(process.forEvents));
}

}  // namespace qv::provider
