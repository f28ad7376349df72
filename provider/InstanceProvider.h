#pragma once

#include <wbemcli.h>
#include <wbemprov.h>
#include <windows.h>

#include <memory>
#include <string>

#include "NativeAPI/NativeAPI.h"
#include "log/ProviderLog.h"
#include "platform/QueryPort.h"
#include "platform/windows/ComObject.h"
#include "platform/windows/UnsupportedServices.h"
#include "provider/LentLog.h"
#include "provider/Module.h"

namespace qv::provider {

/// The instance and association provider. The management service creates it through its class
/// factory, initialises it once for a namespace and then calls its request operations on any of
/// its threads, several at once: they only read what Initialize stored. Whatever ends a request
/// inside the builders, an exception too, reaches the caller.
class CQVWMISATA_InstProv
    : public windows::UnsupportedServices<windows::ComObject<IWbemProviderInit, IWbemServices>> {
public:
    /// What the instance provider objects of the process share. All of it outlives them.
    struct Shared {
        ProviderLog& log;
        LentLog& queryLog;  ///< of the data layer's queries that fail
        const platform::QueryPort& service;
        const NativeAPI& api;
    };

    explicit CQVWMISATA_InstProv(const Shared& shared);

    // Of the calls below, those that impersonate the caller give ClientImpersonation::Status() when
    // that fails, and WBEM_E_INVALID_PARAMETER without a sink.

    /// Keeps the namespace's services and its name for the requests to come; the other arguments
    /// but the context are not looked at. Impersonates. Gives WBEM_E_INVALID_PARAMETER without
    /// services too, WBEM_E_FAILED when the system has no path parser, WBEM_E_OUT_OF_MEMORY, or
    /// what the sink answers to WBEM_S_INITIALIZED; the sink hears of success only. One that fails
    /// changes nothing.
    STDMETHODIMP Initialize(LPWSTR user, LONG flags, LPWSTR nameSpace, LPWSTR locale,
                            IWbemServices* services, IWbemContext* context,
                            IWbemProviderInitSink* initSink) override;

    /// Indicates the instance that the path names, with all its properties. Impersonates. Gives the
    /// path parser's status for a path that it refuses, the namespace's for a class that it does
    /// not give, WBEM_E_NOT_FOUND when there is no such instance, the definition's when it spawns
    /// none: a get that fails reaches no sink. Otherwise completes the sink with its own answer to
    /// the instance, and gives what it answers to that.
    STDMETHODIMP GetObjectAsync(const BSTR objectPath, long flags, IWbemContext* context,
                                IWbemObjectSink* responseSink) override;
    /// Indicates every instance of the class, each on its own. Impersonates. Gives WBEM_E_FAILED,
    /// and the sink hears no end, when the namespace does not give the class or an instance has no
    /// properties. Otherwise completes the sink, with its answer to the last instance (success
    /// without one) or with the status of the instance that could not be spawned, and gives what it
    /// answers to that.
    STDMETHODIMP CreateInstanceEnumAsync(const BSTR className, long flags, IWbemContext* context,
                                         IWbemObjectSink* responseSink) override;
    /// Refused with WBEM_E_NOT_SUPPORTED: the management service enumerates and filters by itself.
    /// Impersonates; does not look at the sink.
    STDMETHODIMP ExecQueryAsync(const BSTR queryLanguage, const BSTR query, long flags,
                                IWbemContext* context, IWbemObjectSink* responseSink) override;
    /// Refused with WBEM_E_PROVIDER_NOT_CAPABLE at once, as is DeleteInstanceAsync: nobody is
    /// impersonated, the sink hears nothing.
    STDMETHODIMP PutInstanceAsync(IWbemClassObject* instance, long flags, IWbemContext* context,
                                  IWbemObjectSink* responseSink) override;
    STDMETHODIMP DeleteInstanceAsync(const BSTR objectPath, long flags, IWbemContext* context,
                                     IWbemObjectSink* responseSink) override;

private:
    ~CQVWMISATA_InstProv() override;

    HRESULT ResolveObjectPath(const BSTR objectPath, IWbemContext* context,
                              windows::ComPtr<IWbemClassObject>& instance) const;

    ModuleReference module_;
    const Shared& shared_;
    std::shared_ptr<const LegacyLog> legacyLog_;
    windows::ComPtr<IWbemServices> services_;
    windows::ComPtr<IClassFactory> pathParsers_;
    struct Support;
    /// What the initialisation came with; outlives this object, on purpose.
    Support* support_ = nullptr;
    /// \\server\namespace:, before every reference.
    std::wstring namespacePrefix_;
};

}  // namespace qv::provider
