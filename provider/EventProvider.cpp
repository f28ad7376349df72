#include "provider/EventProvider.h"

#include <array>
#include <cstdio>
#include <mutex>
#include <new>
#include <string>
#include <utility>

#include "log/ProviderLog.h"
#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "platform/windows/WmiQueryPort.h"
#include "provider/ClientImpersonation.h"
#include "provider/EventProcess.h"
#include "source/HostIdentity.h"
#include "wmiUtil/RefreshTimeout.h"

namespace qv::provider {
namespace {

using windows::ComPtr;

/// Releases what the calling thread was delivering with, once the guard is free again: the release
/// is code of somebody else.
class DeliveryEnd {
public:
    DeliveryEnd() = default;
    DeliveryEnd(const DeliveryEnd&) = delete;
    DeliveryEnd& operator=(const DeliveryEnd&) = delete;
    ~DeliveryEnd() {
        EventDelivery over;
        const std::lock_guard guard(EventGuard());
        std::swap(over, MonitorThreads::InFlight());
    }
};

/// Hands the monitor's events to the live provider object; without one, or when it was never
/// initialised, they are dropped.
class LiveReceiver : public EventReceiver {
public:
    void Receive(const InstanceRecord& event) override try {
        EventDelivery& delivery = MonitorThreads::InFlight();
        const DeliveryEnd end;
        CQVWMISATA_EventProv::TakeLiveDelivery(delivery);
        if (delivery.sink && delivery.services) {
            delivery.SendIndication(event);
        }
    } catch (const std::exception&) {
        // This event is lost, those behind it are not.
    }
};

LiveReceiver liveReceiver;

std::string InHexadecimal(HRESULT status) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%X", static_cast<unsigned>(status));
    return text.data();
}

constexpr std::string_view initializeName = "CQVWMISATA_EventProv::Initialize";

void TakeRefreshTimeout() {
    if (const std::uint32_t timeout = ReadRefreshTimeout(); timeout != 0) {
        commonLog.Plain(initializeName, "SetRefreshTimeout " + std::to_string(timeout));
        ProcessInventory().SetRefreshTimeout(timeout);
    }
}

}  // namespace

constinit CQVWMISATA_EventProv* CQVWMISATA_EventProv::newest_ = nullptr;

CQVWMISATA_EventProv::CQVWMISATA_EventProv() {
    commonLog.Plain("CQVWMISATA_EventProv::CQVWMISATA_EventProv",
                    "CQVWMISATA_EventProv DLL is loaded");
    {
        const std::lock_guard guard(EventGuard());
        older_ = std::exchange(newest_, this);
    }
    legacyLog_ = OpenLegacyLog("QVWMISATA::CQVWMISATA_EventProv::");
}

CQVWMISATA_EventProv::~CQVWMISATA_EventProv() {
    commonLog.Plain("CQVWMISATA_EventProv::~CQVWMISATA_EventProv",
                    "CQVWMISATA_EventProv DLL is unloaded");
    definitions_.extendedStatus.reset();
    // The object is whole until its threads are gone: they may be delivering.
    ProcessMonitor().LogThreadExit();
    threads_.EndAll();
    const std::lock_guard guard(EventGuard());
    CQVWMISATA_EventProv** link = &newest_;
    while (*link != this) {
        link = &(*link)->older_;
    }
    *link = older_;
}

void CQVWMISATA_EventProv::TakeLiveDelivery(EventDelivery& taken) {
    const std::lock_guard guard(EventGuard());
    const CQVWMISATA_EventProv* provider = newest_;
    while (provider != nullptr && !provider->delivery_.sink) {
        provider = provider->older_;
    }
    if (provider != nullptr) {
        taken = provider->delivery_;
    }
}

void CQVWMISATA_EventProv::KeepSink(ComPtr<IWbemObjectSink> sink) {
    const std::lock_guard guard(EventGuard());
    delivery_.sink.Swap(sink);
}

HRESULT CQVWMISATA_EventProv::AccessCheck(WBEM_CWSTR, WBEM_CWSTR, long, const BYTE*) {
    return windows::Hr(WBEM_S_NO_ERROR);
}

HRESULT CQVWMISATA_EventProv::Initialize(LPWSTR, LONG, LPWSTR nameSpace, LPWSTR,
                                         IWbemServices* services, IWbemContext* context,
                                         IWbemProviderInitSink* initSink) try {
    const ClientImpersonation caller;
    if (FAILED(caller.Status())) {
        return caller.Status();
    }
    commonLog.Plain(initializeName, "Entering Initialize");
    if (services == nullptr || initSink == nullptr) {
        commonLog.Failure(initializeName, "INVALID PARAMETER");
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    // The object changes when all of it is there.
    ComPtr<IWbemServices> kept(services);
    Definitions definitions;
    const HRESULT fetched = FetchDefinitions(*services, context, definitions);
    if (FAILED(fetched)) {
        return fetched;
    }
    // The namespace's name, unlike the server's, goes through the ANSI code page, on purpose.
    const std::string narrow = nameSpace == nullptr ? std::string() : windows::ToNarrow(nameSpace);
    auto prefix = BuildNamespacePrefix(windows::WmiQueryPort(), windows::ToWide(narrow), {});
    TakeRefreshTimeout();
    std::swap(definitions_, definitions);
    {
        const std::lock_guard guard(EventGuard());
        delivery_.services.Swap(kept);
        delivery_.namespacePrefix.swap(prefix);
    }
    ProcessMonitorLog().Attach(legacyLog_, commonLog.Level());
    commonLog.Plain(initializeName, "Leaving Initialize.");
    return initSink->SetStatus(WBEM_S_INITIALIZED, 0);
} catch (const std::exception&) {
    return windows::Hr(WBEM_E_OUT_OF_MEMORY);
}

/// The indication class and what belongs to the extended status, in this order.
HRESULT CQVWMISATA_EventProv::FetchDefinitions(IWbemServices& services, IWbemContext* context,
                                               Definitions& fetched) {
    windows::Bstr name;
    *name.Receive() = SysAllocString(L"QV_SATADeviceIndication");
    if (name.Get() == nullptr) {
        return windows::Hr(WBEM_E_OUT_OF_MEMORY);
    }
    const HRESULT result = services.GetObject(name.Get(), 0, context, &fetched.indication, nullptr);
    if (FAILED(result)) {
        commonLog.Failure(initializeName, "FAILED - GetObject " + InHexadecimal(result));
        return result;
    }
    fetched.extendedStatus.reset(new (std::nothrow) ExtendedStatus(&services, context));
    if (fetched.extendedStatus == nullptr) {
        commonLog.Failure(initializeName, "WBEM_E_OUT_OF_MEMORY");
        return windows::Hr(WBEM_E_OUT_OF_MEMORY);
    }
    return windows::Hr(WBEM_S_NO_ERROR);
}

HRESULT CQVWMISATA_EventProv::ProvideEvents(IWbemObjectSink* sink, long) try {
    constexpr std::string_view function = "CQVWMISATA_EventProv::ProvideEvents";
    commonLog.Plain(function, "Entering ProvideEvents");
    if (sink == nullptr) {
        commonLog.Failure(function, "INVALID PARAMETER");
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    KeepSink(sink);
    ProcessInventory().RefreshDiskInventoryIfStale(ProcessMonitor().Running());
    ProcessMonitor().RegisterReceiver(liveReceiver);
    threads_.StartOne();
    commonLog.Plain(function, "Leaving ProvideEvents.");
    sink->SetStatus(WBEM_STATUS_COMPLETE, WBEM_S_NO_ERROR, nullptr, nullptr);
    return windows::Hr(WBEM_S_NO_ERROR);
} catch (const std::exception&) {
    return windows::Hr(WBEM_E_OUT_OF_MEMORY);
}

}  // namespace qv::provider
