#include "qvsata/session/PublishedInstances.h"

#include <optional>
#include <string>
#include <utility>

#include "qvsata/session/Session.h"

namespace qv::tool {

namespace {

view::PublishedObject WithoutProperties(const service::Object& object) {
    return {service::TextOf(object, "__CLASS"), service::TextOf(object, "__RELPATH"), {}, {}};
}

}  // namespace

view::PublishedObject ReadObject(const service::Object& object) {
    view::PublishedObject published = WithoutProperties(object);
    for (service::ObjectProperty& property : service::PropertiesOf(object)) {
        const auto* text = std::get_if<std::string>(&property.value);
        if (property.type == service::CimType::reference && text != nullptr) {
            published.references.emplace_back(property.name, *text);
        }
        published.values[property.name] = std::move(property.value);
    }
    return published;
}

view::PublishedObject ReadObject(const service::Object& object,
                                 std::span<const std::string_view> properties) {
    view::PublishedObject published = WithoutProperties(object);
    for (const std::string_view name : properties) {
        if (std::optional<service::ObjectProperty> property = object.Find(name)) {
            published.values[property->name] = std::move(property->value);
        }
    }
    return published;
}

view::PublishedHost ReadInstances(const service::Namespace& nameSpace,
                                  std::span<const std::string_view> classes) {
    view::PublishedHost host;
    for (const std::string_view className : classes) {
        auto& instances = host[std::string(className)];
        for (const auto& object : Take(nameSpace.Enumerate(className))) {
            instances.push_back(ReadObject(*object));
        }
    }
    return host;
}

}  // namespace qv::tool
