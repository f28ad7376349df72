#include "provider/EventProvider.h"

#include <array>
#include <cstdio>
#include <new>
#include <string>
#include <utility>

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "provider/ClientImpersonation.h"
#include "source/HostIdentity.h"
#include "wmiUtil/RefreshTimeout.h"

namespace qv::provider {
namespace {

using windows::ComPtr;

std::string InHexadecimal(HRESULT status) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%X", static_cast<unsigned>(status));
    return text.data();
}

constexpr std::string_view initializeName = "CQVWMISATA_EventProv::Initialize";

}  // namespace

CQVWMISATA_EventProv::CQVWMISATA_EventProv(const Shared& shared)
    : shared_(shared), threads_(shared.monitor, shared.inventory, shared.guard) {
    shared_.log.Plain("CQVWMISATA_EventProv::CQVWMISATA_EventProv",
                      "CQVWMISATA_EventProv DLL is loaded");
    shared_.deliveries.Add(place_);
    legacyLog_ = OpenLegacyLog("QVWMISATA::CQVWMISATA_EventProv::");
}

CQVWMISATA_EventProv::~CQVWMISATA_EventProv() {
    shared_.log.Plain("CQVWMISATA_EventProv::~CQVWMISATA_EventProv",
                      "CQVWMISATA_EventProv DLL is unloaded");
    definitions_.extendedStatus.reset();
    // The object must be complete until its threads have ended: they may be delivering.
    shared_.monitor.LogThreadExit();
    threads_.EndAll();
    shared_.deliveries.Remove(place_);
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
    shared_.log.Plain(initializeName, "Entering Initialize");
    if (services == nullptr || initSink == nullptr) {
        shared_.log.Failure(initializeName, "INVALID PARAMETER");
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    // Changes the object only when everything has succeeded.
    ComPtr<IWbemServices> kept(services);
    Definitions definitions;
    const HRESULT fetched = FetchDefinitions(*services, context, definitions);
    if (FAILED(fetched)) {
        return fetched;
    }
    // The namespace's name, unlike the server's, goes through the ANSI code page, on purpose.
    const std::string narrow = nameSpace == nullptr ? std::string() : windows::ToNarrow(nameSpace);
    auto prefix = BuildNamespacePrefix(shared_.service, windows::ToWide(narrow), {});
    TakeRefreshTimeout();
    std::swap(definitions_, definitions);
    shared_.deliveries.SetNamespace(place_, std::move(kept), std::move(prefix));
    shared_.monitorLog.Attach(legacyLog_, shared_.log.Level());
    shared_.log.Plain(initializeName, "Leaving Initialize.");
    return initSink->SetStatus(WBEM_S_INITIALIZED, 0);
} catch (const RequestError& error) {
    return windows::ToHresult(error.status());
} catch (const std::exception&) {
    return windows::Hr(WBEM_E_OUT_OF_MEMORY);
}

void CQVWMISATA_EventProv::TakeRefreshTimeout() const {
    if (const std::uint32_t timeout = ReadRefreshTimeout(); timeout != 0) {
        shared_.log.Plain(initializeName, "SetRefreshTimeout " + std::to_string(timeout));
        shared_.inventory.SetRefreshTimeout(timeout);
    }
}

/// Fetches the indication class, then the class of the extended status.
HRESULT CQVWMISATA_EventProv::FetchDefinitions(IWbemServices& services, IWbemContext* context,
                                               Definitions& fetched) {
    windows::Bstr name;
    *name.Receive() = SysAllocString(L"QV_SATADeviceIndication");
    if (name.Get() == nullptr) {
        return windows::Hr(WBEM_E_OUT_OF_MEMORY);
    }
    const HRESULT result = services.GetObject(name.Get(), 0, context, &fetched.indication, nullptr);
    if (FAILED(result)) {
        shared_.log.Failure(initializeName, "FAILED - GetObject " + InHexadecimal(result));
        return result;
    }
    fetched.extendedStatus.reset(new (std::nothrow) ExtendedStatus(&services, context));
    if (fetched.extendedStatus == nullptr) {
        shared_.log.Failure(initializeName, "WBEM_E_OUT_OF_MEMORY");
        return windows::Hr(WBEM_E_OUT_OF_MEMORY);
    }
    return windows::Hr(WBEM_S_NO_ERROR);
}

HRESULT CQVWMISATA_EventProv::ProvideEvents(IWbemObjectSink* sink, long) try {
    constexpr std::string_view function = "CQVWMISATA_EventProv::ProvideEvents";
    shared_.log.Plain(function, "Entering ProvideEvents");
    if (sink == nullptr) {
        shared_.log.Failure(function, "INVALID PARAMETER");
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    shared_.deliveries.SetSink(place_, sink);
    shared_.inventory.RefreshDiskInventoryIfStale(shared_.monitor.Running());
    shared_.monitor.RegisterReceiver(shared_.deliveries);
    threads_.StartOne();
    shared_.log.Plain(function, "Leaving ProvideEvents.");
    sink->SetStatus(WBEM_STATUS_COMPLETE, WBEM_S_NO_ERROR, nullptr, nullptr);
    return windows::Hr(WBEM_S_NO_ERROR);
} catch (const RequestError& error) {
    return windows::ToHresult(error.status());
} catch (const std::exception&) {
    return windows::Hr(WBEM_E_OUT_OF_MEMORY);
}

}  // namespace qv::provider
