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
/// factory, initialises it once for a namespace and then calls its request operations on any of its
/// threads, concurrently: they only read what Initialize stored. Failures inside the builders,
/// including exceptions, reach the caller.
class CQVWMISATA_InstProv
    : public windows::UnsupportedServices<windows::ComObject<IWbemProviderInit, IWbemServices>> {
public:
    /// What the process's instance provider objects share. All of it outlives them.
    struct Shared {
        ProviderLog& log;
        LentLog& queryLog;  ///< for failed queries of the data layer
        const platform::QueryPort& service;
        const NativeAPI& api;
    };

    explicit CQVWMISATA_InstProv(const Shared& shared);

    // The calls that impersonate return ClientImpersonation::Status() if impersonation fails, and
    // WBEM_E_INVALID_PARAMETER for a null sink.

    /// Stores the namespace pointer and name; ignores all other arguments except the context.
    /// Impersonates. Also returns WBEM_E_INVALID_PARAMETER for a null namespace, WBEM_E_FAILED if
    /// the system has no path parser, WBEM_E_OUT_OF_MEMORY, or the sink's answer to
    /// WBEM_S_INITIALIZED. Calls the sink only on success. A failed call changes nothing.
    STDMETHODIMP Initialize(LPWSTR user, LONG flags, LPWSTR nameSpace, LPWSTR locale,
                            IWbemServices* services, IWbemContext* context,
                            IWbemProviderInitSink* initSink) override;

    /// Delivers the named instance with all properties. Impersonates. Returns the path parser's
    /// status for a refused path, the namespace's failure to return the class, WBEM_E_NOT_FOUND for
    /// a missing instance, or the failure of the spawn; the sink is then not called. Otherwise
    /// passes the sink's answer to the instance to SetStatus and returns the result of SetStatus.
    STDMETHODIMP GetObjectAsync(const BSTR objectPath, long flags, IWbemContext* context,
                                IWbemObjectSink* responseSink) override;
    /// Delivers each instance of the class separately. Impersonates. Returns WBEM_E_FAILED without
    /// SetStatus if the class cannot be fetched or an instance has no properties. Otherwise passes
    /// the sink's answer to the last instance (success if there is none), or the failure of a
    /// spawn, to SetStatus and returns the result of SetStatus.
    STDMETHODIMP CreateInstanceEnumAsync(const BSTR className, long flags, IWbemContext* context,
                                         IWbemObjectSink* responseSink) override;
    /// Returns WBEM_E_NOT_SUPPORTED: the management service enumerates and filters by itself.
    /// Impersonates; ignores the sink.
    STDMETHODIMP ExecQueryAsync(const BSTR queryLanguage, const BSTR query, long flags,
                                IWbemContext* context, IWbemObjectSink* responseSink) override;
    /// Returns WBEM_E_PROVIDER_NOT_CAPABLE at once, as does DeleteInstanceAsync; neither
    /// impersonates nor calls the sink.
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
    /// The namespace and context of Initialize; outlives this object, on purpose.
    Support* support_ = nullptr;
    /// \\server\namespace:, the prefix of every reference.
    std::wstring namespacePrefix_;
};

}  // namespace qv::provider
