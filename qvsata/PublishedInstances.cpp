#include "qvsata/PublishedInstances.h"

#include "qvsata/Session.h"
#include "qvsata/service/com/ObjectReading.h"

namespace qv::tool {

view::PublishedObject ReadObject(IWbemClassObject& object) {
    view::PublishedObject published;
    published.className = service::ReadText(object, "__CLASS");
    published.path = service::ReadText(object, "__RELPATH");
    for (service::ObjectProperty& property : service::ReadProperties(object)) {
        const auto* text = std::get_if<std::string>(&property.value);
        if (property.type == service::CimType::reference && text != nullptr) {
            published.references.emplace_back(property.name, *text);
        }
        published.values[property.name] = std::move(property.value);
    }
    return published;
}

view::PublishedHost ReadInstances(const service::EmbeddedNamespace& nameSpace,
                                  std::span<const std::string_view> classes) {
    view::PublishedHost host;
    for (const std::string_view className : classes) {
        auto& instances = host[std::string(className)];
        for (const auto& object : Take(nameSpace.Enumerate(className))) {
            instances.push_back(ReadObject(*object.Get()));
        }
    }
    return host;
}

}  // namespace qv::tool
