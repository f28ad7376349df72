#pragma once

#include "platform/windows/ComObject.h"
#include "platform/windows/UnsupportedServices.h"

namespace qv::service {

/// A connection to a namespace of this machine's own management service. A query is read to its
/// end at once, and one call runs at a time in the whole process: Wine's management service
/// crashes when two threads query it. Any number of threads may use it.
class LiveServices final : public windows::UnsupportedServices<windows::ComObject<IWbemServices>> {
public:
    /// Connects; `services` is set on success only.
    static HRESULT Connect(const BSTR nameSpace, windows::ComPtr<IWbemServices>& services);

    explicit LiveServices(windows::ComPtr<IWbemServices> machine) : machine_(std::move(machine)) {}

    STDMETHODIMP GetObject(const BSTR path, long flags, IWbemContext* context,
                           IWbemClassObject** object, IWbemCallResult** result) override;
    STDMETHODIMP CreateInstanceEnum(const BSTR className, long flags, IWbemContext* context,
                                    IEnumWbemClassObject** objects) override;
    STDMETHODIMP ExecQuery(const BSTR language, const BSTR query, long flags, IWbemContext* context,
                           IEnumWbemClassObject** objects) override;

protected:
    ~LiveServices() override;

private:
    windows::ComPtr<IWbemServices> machine_;
};

}  // namespace qv::service
