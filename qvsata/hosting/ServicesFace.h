#pragma once

#include <memory>

#include "platform/windows/ComObject.h"
#include "platform/windows/UnsupportedServices.h"
#include "qvsata/service/Services.h"

namespace qv::service {

/// A connection to a namespace as COM sees it: read operations only. Any number of threads may use
/// it.
class ServicesFace final : public windows::UnsupportedServices<windows::ComObject<IWbemServices>> {
public:
    explicit ServicesFace(std::shared_ptr<const service::Services> services)
        : services_(std::move(services)) {}

    STDMETHODIMP GetObject(const BSTR path, long flags, IWbemContext* context,
                           IWbemClassObject** object, IWbemCallResult** result) override;
    STDMETHODIMP CreateInstanceEnum(const BSTR className, long flags, IWbemContext* context,
                                    IEnumWbemClassObject** objects) override;
    /// Returns WBEM_E_INVALID_QUERY_TYPE for a language other than WQL.
    STDMETHODIMP ExecQuery(const BSTR language, const BSTR query, long flags, IWbemContext* context,
                           IEnumWbemClassObject** objects) override;

private:
    std::shared_ptr<const service::Services> services_;
};

}  // namespace qv::service
