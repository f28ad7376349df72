#include "qvsata/session/PublishedInstances.h"

#include "qvsata/session/Session.h"

namespace qv::tool {

view::PublishedObject ReadObject(const service::Object& object) {
    view::PublishedObject published;
    published.className = service::TextOf(object, "__CLASS");
    published.path = service::TextOf(object, "__RELPATH");
    for (service::ObjectProperty& property : service::PropertiesOf(object)) {
        const auto* text = std::get_if<std::string>(&property.value);
        if (property.type == service::CimType::reference && text != nullptr) {
            published.references.emplace_back(property.name, *text);
        }
        published.values[property.name] = std::move(property.value);
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
