#include "qvsata/cim/Snapshot.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "source/Text.h"

namespace qv::service {

namespace {

/// Returns the system properties of an object and the other properties for which `isChosen` holds.
template <typename Predicate>
std::vector<ObjectProperty> Choose(const Object& object, Predicate isChosen) {
    std::vector<ObjectProperty> properties;
    for (const std::string_view name : systemPropertyNames) {
        if (std::optional<ObjectProperty> property = object.Find(name)) {
            properties.push_back(std::move(*property));
        }
    }
    std::ranges::copy_if(PropertiesOf(object), std::back_inserter(properties), isChosen);
    return properties;
}

}  // namespace

Snapshot::Snapshot(std::vector<ObjectProperty> properties,
                   std::vector<std::string> shownSystemNames)
    : properties_(std::move(properties)), shownSystemNames_(std::move(shownSystemNames)) {}

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

std::vector<std::string> Snapshot::ShownNames() const {
    std::vector<std::string> names = shownSystemNames_;
    std::ranges::copy(Names(), std::back_inserter(names));
    return names;
}

ObjectPtr Select(const Object& object, const std::vector<std::string>& selected) {
    const auto isSelected = [&selected](std::string_view name) {
        return std::ranges::any_of(
            selected, [name](const std::string& one) { return EqualsIgnoringCase(one, name); });
    };
    std::vector<std::string> shownSystemNames;
    for (const std::string_view name : systemPropertyNames) {
        if (isSelected(name)) {
            shownSystemNames.emplace_back(name);
        }
    }
    return std::make_shared<Snapshot>(
        Choose(object, [&isSelected](const ObjectProperty& one) { return isSelected(one.name); }),
        std::move(shownSystemNames));
}

ObjectPtr SelectKeys(const Object& object) {
    return std::make_shared<Snapshot>(
        Choose(object, [](const ObjectProperty& one) { return one.isKey; }));
}

}  // namespace qv::service
