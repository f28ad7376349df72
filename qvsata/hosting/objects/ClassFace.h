#pragma once

#include "qvsata/cim/ResolvedClass.h"
#include "qvsata/hosting/objects/ObjectFace.h"

namespace qv::service {

/// A class definition as COM sees it. It can be read, and instances can be spawned from it.
class ClassFace final : public ObjectFace {
public:
    /// `definition` is an object that defines a class.
    explicit ClassFace(const ObjectPtr& definition)
        : ObjectFace(definition), definition_(definition->Definition()) {}

    /// Returns an empty instance of the class.
    STDMETHODIMP SpawnInstance(LONG flags, IWbemClassObject** instance) override;
    STDMETHODIMP Clone(IWbemClassObject** copy) override;
    /// Returns the topmost class that declares the property.
    STDMETHODIMP GetPropertyOrigin(LPCWSTR name, BSTR* className) override;

private:
    ResolvedClassPtr definition_;
};

}  // namespace qv::service
