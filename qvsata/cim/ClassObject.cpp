#include "qvsata/cim/ClassObject.h"

#include <algorithm>

#include "qvsata/cim/SystemProperties.h"
#include "source/Text.h"

namespace qv::service {

ObjectProperty AsDefined(const PropertyDefinition& definition, const ResolvedClass& type) {
    return {definition.name,    definition.type,
            definition.isArray, definition.defaultValue,
            definition.isKey,   !EqualsIgnoringCase(definition.declaringClass, type.name)};
}

std::vector<std::string> PropertyNames(const ResolvedClass& type) {
    std::vector<std::string> names;
    std::ranges::transform(type.Properties(), std::back_inserter(names), &PropertyDefinition::name);
    return names;
}

std::optional<ObjectProperty> ClassObject::Find(std::string_view name) const {
    if (IsSystemName(name)) {
        return SystemProperty(name, *definition_, Genus::classDefinition, definition_->name);
    }
    const PropertyDefinition* property = definition_->Find(name);
    return property == nullptr ? std::nullopt : std::optional(AsDefined(*property, *definition_));
}

std::vector<std::string> ClassObject::Names() const {
    return PropertyNames(*definition_);
}

}  // namespace qv::service
