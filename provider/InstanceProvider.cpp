#include "provider/InstanceProvider.h"

#include <new>
#include <optional>

#include "platform/windows/Bstr.h"
#include "platform/windows/PathTexts.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "provider/ClientImpersonation.h"
#include "provider/InstanceTarget.h"
#include "source/FillInstance.h"
#include "source/HostIdentity.h"

namespace qv::provider {

using windows::Bstr;
using windows::ComPtr;

/// The namespace and the context of Initialize.
struct CQVWMISATA_InstProv::Support {
    ComPtr<IWbemServices> services;
    ComPtr<IWbemContext> context;
};

CQVWMISATA_InstProv::CQVWMISATA_InstProv(const Shared& shared) : shared_(shared) {
    shared_.log.Plain("CQVWMISATA_InstProv::CQVWMISATA_InstProv",
                      "CQVWMISATA_InstProv DLL is loaded");
    legacyLog_ = OpenLegacyLog("QVWMISATA::CQVWMISATA_InstProv::");
}

CQVWMISATA_InstProv::~CQVWMISATA_InstProv() {
    shared_.log.Plain("CQVWMISATA_InstProv::~CQVWMISATA_InstProv",
                      "CQVWMISATA_InstProv DLL is unloaded");
}

HRESULT CQVWMISATA_InstProv::Initialize(LPWSTR, LONG, LPWSTR nameSpace, LPWSTR,
                                        IWbemServices* services, IWbemContext* context,
                                        IWbemProviderInitSink* initSink) {
    constexpr std::string_view function = "CQVWMISATA_InstProv::Initialize";
    shared_.log.Plain(function, "Entering Initialize");
    const ClientImpersonation caller;
    if (FAILED(caller.Status())) {
        return caller.Status();
    }
    if (services == nullptr || initSink == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    // Changes the object only when everything has succeeded.
    ComPtr<IClassFactory> pathParsers;
    if (FAILED(CoGetClassObject(windows::pathParserClassId, CLSCTX_INPROC_SERVER, nullptr,
                                IID_PPV_ARGS(&pathParsers)))) {
        return windows::Hr(WBEM_E_FAILED);
    }
    std::unique_ptr<Support> support(new (std::nothrow) Support{services, context});
    if (support == nullptr) {
        return windows::Hr(WBEM_E_OUT_OF_MEMORY);
    }
    auto prefix = BuildNamespacePrefix(shared_.service,
                                       nameSpace == nullptr ? std::wstring_view() : nameSpace, {});
    services_ = services;
    pathParsers_.Swap(pathParsers);
    support_ = support.release();
    namespacePrefix_.swap(prefix);
    shared_.queryLog.Attach(legacyLog_, shared_.log.Level());
    shared_.log.Plain(function, "Leaving Initialize");
    return initSink->SetStatus(WBEM_S_INITIALIZED, 0);
}

HRESULT CQVWMISATA_InstProv::CreateInstanceEnumAsync(const BSTR className, long,
                                                     IWbemContext* context,
                                                     IWbemObjectSink* responseSink) {
    shared_.log.Plain("CQVWMISATA_InstProv::CreateInstanceEnumAsync",
                      "Entering CreateInstanceEnumAsync");
    const ClientImpersonation caller;
    if (FAILED(caller.Status())) {
        return caller.Status();
    }
    if (responseSink == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    const std::string requestedClass = windows::ToNarrow(Bstr::ViewOf(className), CP_THREAD_ACP);
    ComPtr<IWbemClassObject> definition;
    HRESULT status = services_->GetObject(className, 0, context, &definition, nullptr);
    if (FAILED(status)) {
        return windows::Hr(WBEM_E_FAILED);
    }
    const RecordList records = shared_.api.BuildInstances(requestedClass, mode::allProperties, {});
    for (const InstanceRecord& record : records) {
        ComPtr<IWbemClassObject> instance;
        status = definition->SpawnInstance(0, &instance);
        if (FAILED(status)) {
            break;
        }
        InstanceTarget target(*instance.Get(), namespacePrefix_);
        if (!Succeeded(FillInstance(target, record))) {
            return windows::Hr(WBEM_E_FAILED);
        }
        status = responseSink->Indicate(1, instance.GetAddressOf());
    }
    return responseSink->SetStatus(WBEM_STATUS_COMPLETE, status, nullptr, nullptr);
}

HRESULT CQVWMISATA_InstProv::GetObjectAsync(const BSTR objectPath, long, IWbemContext* context,
                                            IWbemObjectSink* responseSink) {
    const ClientImpersonation caller;
    if (FAILED(caller.Status())) {
        return caller.Status();
    }
    if (responseSink == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    ComPtr<IWbemClassObject> instance;
    const HRESULT resolved = ResolveObjectPath(objectPath, context, instance);
    if (FAILED(resolved)) {
        // Does not call the sink, unlike the end of an enumeration, on purpose.
        return resolved;
    }
    const HRESULT indicated = responseSink->Indicate(1, instance.GetAddressOf());
    return responseSink->SetStatus(WBEM_STATUS_COMPLETE, indicated, nullptr, nullptr);
}

HRESULT CQVWMISATA_InstProv::ResolveObjectPath(const BSTR objectPath, IWbemContext* context,
                                               ComPtr<IWbemClassObject>& instance) const {
    windows::PathTexts path;
    HRESULT status = windows::ParsePath(*pathParsers_.Get(), objectPath, path);
    if (FAILED(status)) {
        return status;
    }
    ComPtr<IWbemClassObject> definition;
    status = services_->GetObject(Bstr(path.className).Get(), 0, context, &definition, nullptr);
    if (FAILED(status)) {
        return status;
    }
    const std::optional<InstanceRecord> record =
        shared_.api.FindInstance(windows::ToNarrow(path.className, CP_THREAD_ACP),
                                 windows::ToNarrow(path.relative, CP_THREAD_ACP));
    if (!record) {
        return windows::Hr(WBEM_E_NOT_FOUND);
    }
    status = definition->SpawnInstance(0, instance.ReleaseAndGetAddressOf());
    if (SUCCEEDED(status)) {
        InstanceTarget target(*instance.Get(), namespacePrefix_);
        FillInstance(target, *record);
    }
    return status;
}

HRESULT CQVWMISATA_InstProv::ExecQueryAsync(const BSTR, const BSTR, long, IWbemContext*,
                                            IWbemObjectSink*) {
    const ClientImpersonation caller;
    return FAILED(caller.Status()) ? caller.Status() : windows::Hr(WBEM_E_NOT_SUPPORTED);
}

HRESULT CQVWMISATA_InstProv::PutInstanceAsync(IWbemClassObject*, long, IWbemContext*,
                                              IWbemObjectSink*) {
    return windows::Hr(WBEM_E_PROVIDER_NOT_CAPABLE);
}

HRESULT CQVWMISATA_InstProv::DeleteInstanceAsync(const BSTR, long, IWbemContext*,
                                                 IWbemObjectSink*) {
    return windows::Hr(WBEM_E_PROVIDER_NOT_CAPABLE);
}

}  // namespace qv::provider
