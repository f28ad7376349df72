#include "qvsata/cim/Snapshot.h"

#include <algorithm>
#include <utility>

#include "source/Text.h"

namespace qv::service {

Snapshot::Snapshot(std::vector<ObjectProperty> properties)
    : properties_(std::move(properties)), references_(ReferencesAmong(properties_)) {}

std::optional<ObjectProperty> Snapshot::Find(std::string_view name) const {
    const auto found = std::ranges::find_if(
        properties_, [name](const auto& one) { return EqualsIgnoringCase(one.name, name); });
    return found == properties_.end() ? std::nullopt : std::optional(*found);
}

std::vector<std::string> Snapshot::Names() const {
    std::vector<std::string> names;
    for (const ObjectProperty& property : properties_) {
        if (!IsSystemName(property.name)) {
            names.push_back(property.name);
        }
    }
    return names;
}

ObjectPtr Select(const Object& object, const std::vector<std::string>& selected) {
    std::vector<ObjectProperty> properties;
    for (const std::string_view name : systemPropertyNames) {
        if (std::optional<ObjectProperty> property = object.Find(name)) {
            properties.push_back(std::move(*property));
        }
    }
    for (ObjectProperty& property : PropertiesOf(object)) {
        if (std::ranges::any_of(selected, [&property](const std::string& name) {
                return EqualsIgnoringCase(name, property.name);
            })) {
            properties.push_back(std::move(property));
        }
    }
    return std::make_shared<Snapshot>(std::move(properties));
}

}  // namespace qv::service
