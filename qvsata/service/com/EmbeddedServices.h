#pragma once

#include <memory>

#include "platform/windows/ComObject.h"
#include "platform/windows/UnsupportedServices.h"
#include "qvsata/service/com/EmbeddedNamespace.h"

namespace qv::service {

/// The connection to the namespace of the provider: GetObject, CreateInstanceEnum and ExecQuery. It
/// keeps the namespace, so that a provider may hold it for as long as it likes.
class EmbeddedServices final
    : public windows::UnsupportedServices<windows::ComObject<IWbemServices>> {
public:
    explicit EmbeddedServices(std::shared_ptr<const EmbeddedNamespace> nameSpace)
        : nameSpace_(std::move(nameSpace)) {}

    STDMETHODIMP GetObject(const BSTR path, long flags, IWbemContext* context,
                           IWbemClassObject** object, IWbemCallResult** result) override;
    STDMETHODIMP CreateInstanceEnum(const BSTR className, long flags, IWbemContext* context,
                                    IEnumWbemClassObject** objects) override;
    STDMETHODIMP ExecQuery(const BSTR language, const BSTR query, long flags, IWbemContext* context,
                           IEnumWbemClassObject** objects) override;

private:
    std::shared_ptr<const EmbeddedNamespace> nameSpace_;
};

}  // namespace qv::service
