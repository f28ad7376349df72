#pragma once

#include "qvsata/service/com/ReadableObject.h"
#include "qvsata/service/com/ResolvedClass.h"

namespace qv::service {

/// A class definition as clients and providers receive it: its properties have their default
/// values, instances are spawned of it, the definition itself cannot be changed.
class ClassObject final : public ReadableObject {
public:
    explicit ClassObject(ResolvedClassPtr definition) : definition_(std::move(definition)) {}

    std::optional<ObjectProperty> Find(std::string_view name) const override;
    std::vector<std::string> Names() const override;

    /// An InstanceObject without a value of its own.
    STDMETHODIMP SpawnInstance(LONG flags, IWbemClassObject** instance) override;
    STDMETHODIMP Clone(IWbemClassObject** copy) override;
    /// The topmost class that declares the property.
    STDMETHODIMP GetPropertyOrigin(LPCWSTR name, BSTR* className) override;

protected:
    std::string MofText() const override;

private:
    ResolvedClassPtr definition_;
};

/// A property as a class defines it, with its default value.
ObjectProperty AsDefined(const PropertyDefinition& definition, const ResolvedClass& type);

/// The names of a class's properties, in order.
std::vector<std::string> PropertyNames(const ResolvedClass& type);

}  // namespace qv::service
