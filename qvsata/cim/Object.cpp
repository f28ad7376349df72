#include "qvsata/cim/Object.h"

#include <utility>

#include "qvsata/cim/ObjectPathParser.h"

namespace qv::service {

namespace {

std::vector<ObjectProperty> PropertiesNamed(const Object& object,
                                            const std::vector<std::string>& names) {
    std::vector<ObjectProperty> properties;
    for (const std::string& name : names) {
        if (std::optional<ObjectProperty> property = object.Find(name)) {
            properties.push_back(std::move(*property));
        }
    }
    return properties;
}

}  // namespace

std::string Object::ClassName() const {
    return TextOf(*this, "__CLASS");
}

bool IsSystemName(std::string_view name) {
    return name.starts_with("__");
}

std::vector<ObjectProperty> PropertiesOf(const Object& object) {
    return PropertiesNamed(object, object.Names());
}

std::vector<ObjectProperty> ShownPropertiesOf(const Object& object) {
    return PropertiesNamed(object, object.ShownNames());
}

std::string TextOf(const Object& object, std::string_view name) {
    std::optional<ObjectProperty> property = object.Find(name);
    auto* text = property ? std::get_if<std::string>(&property->value) : nullptr;
    return text == nullptr ? std::string() : std::move(*text);
}

std::vector<Reference> ReferencesAmong(std::span<const ObjectProperty> properties) {
    std::vector<Reference> references;
    for (const ObjectProperty& property : properties) {
        const auto* text = std::get_if<std::string>(&property.value);
        if (property.type != CimType::reference || text == nullptr) {
            continue;
        }
        if (std::optional<ObjectPath> path = ParseObjectPath(*text)) {
            references.push_back({property.name, std::move(*path)});
        }
    }
    return references;
}

}  // namespace qv::service
