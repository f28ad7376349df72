#pragma once

#include "qvsata/cim/Object.h"
#include "qvsata/cim/ResolvedClass.h"

namespace qv::service {

/// A class definition as an object; its properties have their default values.
class ClassObject final : public Object {
public:
    explicit ClassObject(ResolvedClassPtr definition) : definition_(std::move(definition)) {}

    ResolvedClassPtr Definition() const override { return definition_; }

    std::optional<ObjectProperty> Find(std::string_view name) const override;
    std::vector<std::string> Names() const override;
    std::string ClassName() const override { return definition_->name; }
    /// Empty: the references of a definition name classes, not objects.
    std::vector<Reference> References() const override { return {}; }

private:
    ResolvedClassPtr definition_;
};

/// Returns a property with its default value, as the class defines it.
ObjectProperty AsDefined(const PropertyDefinition& definition, const ResolvedClass& type);

/// Returns the names of a class's properties, in order.
std::vector<std::string> PropertyNames(const ResolvedClass& type);

}  // namespace qv::service
