#pragma once

#include <memory>

#include "qvsata/cim/Instance.h"
#include "qvsata/hosting/objects/ObjectFace.h"

namespace qv::service {

/// An instance as COM sees it while a provider fills it. Values are put by PutOn. One thread may
/// put; afterwards several may read.
class InstanceFace final : public ObjectFace {
public:
    explicit InstanceFace(std::shared_ptr<Instance> instance)
        : ObjectFace(instance), instance_(std::move(instance)) {}

    /// Returns WBEM_E_NOT_FOUND for a property that the class does not define, and WBEM_E_READ_ONLY
    /// for a system property; neither code is documented. `type` must be 0, as documented for
    /// instances.
    STDMETHODIMP Put(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE type) override;
    /// Resets the property to its default value.
    STDMETHODIMP Delete(LPCWSTR name) override;
    STDMETHODIMP Clone(IWbemClassObject** copy) override;

private:
    std::shared_ptr<Instance> instance_;
};

}  // namespace qv::service
