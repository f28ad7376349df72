#pragma once

#include <wbemcli.h>
#include <wbemprov.h>
#include <windows.h>

#include <memory>
#include <string>

#include "platform/windows/ComObject.h"
#include "platform/windows/UnsupportedServices.h"
#include "provider/Module.h"
#include "wmiUtil/LegacyLog.h"

namespace qv::provider {

/// The instance and association provider. The management service creates it through its class
/// factory, initialises it once for a namespace and then calls its request operations on any of
/// its threads, several at once: they only read what Initialize stored. Whatever ends a request
/// inside the builders, an exception too, reaches the caller.
class CQVWMISATA_InstProv
    : public windows::UnsupportedServices<windows::ComObject<IWbemProviderInit, IWbemServices>> {
public:
    CQVWMISATA_InstProv();

    STDMETHODIMP Initialize(LPWSTR user, LONG flags, LPWSTR nameSpace, LPWSTR locale,
                            IWbemServices* services, IWbemContext* context,
                            IWbemProviderInitSink* initSink) override;

    STDMETHODIMP GetObjectAsync(const BSTR objectPath, long flags, IWbemContext* context,
                                IWbemObjectSink* responseSink) override;
    STDMETHODIMP CreateInstanceEnumAsync(const BSTR className, long flags, IWbemContext* context,
                                         IWbemObjectSink* responseSink) override;
    /// Refused: the management service enumerates and filters by itself.
    STDMETHODIMP ExecQueryAsync(const BSTR queryLanguage, const BSTR query, long flags,
                                IWbemContext* context, IWbemObjectSink* responseSink) override;
    STDMETHODIMP PutInstanceAsync(IWbemClassObject* instance, long flags, IWbemContext* context,
                                  IWbemObjectSink* responseSink) override;
    STDMETHODIMP DeleteInstanceAsync(const BSTR objectPath, long flags, IWbemContext* context,
                                     IWbemObjectSink* responseSink) override;

private:
    ~CQVWMISATA_InstProv() override;

    HRESULT ResolveObjectPath(const BSTR objectPath, IWbemContext* context,
                              windows::ComPtr<IWbemClassObject>& instance) const;

    ModuleReference module_;
    std::shared_ptr<const LegacyLog> legacyLog_;
    windows::ComPtr<IWbemServices> services_;
    windows::ComPtr<IClassFactory> pathParsers_;
    struct Support;
    /// What the initialisation came with; outlives this object, on purpose.
    Support* support_ = nullptr;
    /// \\server\namespace: in the ANSI code page, before every reference.
    std::string namespacePrefix_;
};

}  // namespace qv::provider
