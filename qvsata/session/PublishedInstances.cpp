#include "qvsata/session/PublishedInstances.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "catalogue/Classes.h"
#include "qvsata/session/MachineRun.h"

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

std::vector<std::string_view> AllPublishedClasses() {
    std::vector<std::string_view> classes;
    std::ranges::transform(PublishedClasses(), std::back_inserter(classes), &PublishedClass::name);
    return classes;
}

view::PublishedHost ReadInstances(const service::Namespace& nameSpace,
                                  std::span<const std::string_view> classes) {
    return ReadInstances(nameSpace, classes,
                         [](const std::string& failure) { throw CommandError(failure); });
}

view::PublishedHost ReadInstances(const service::Namespace& nameSpace,
                                  std::span<const std::string_view> classes,
                                  const std::function<void(const std::string&)>& fail) {
    view::PublishedHost host;
    for (const std::string_view className : classes) {
        const service::Answer answer = nameSpace.Enumerate(className);
        if (!Succeeded(answer.status)) {
            fail(answer.message);
            continue;
        }
        auto& instances = host[std::string(className)];
        for (const auto& object : answer.objects) {
            instances.push_back(ReadObject(*object));
        }
    }
    return host;
}

}  // namespace qv::tool
