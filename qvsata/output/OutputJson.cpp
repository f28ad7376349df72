#include "qvsata/output/OutputJson.h"

namespace qv::tool {
namespace {

using nlohmann::ordered_json;

// One overload for what JSON writes differently, one for the rest.
ordered_json AsJson(std::monostate) {
    return nullptr;
}

template <typename Value>
ordered_json AsJson(const Value& value) {
    return value;
}

ordered_json AsJson(const service::CimValue& value) {
    return std::visit([](const auto& held) { return AsJson(held); }, value);
}

ordered_json AsJson(const service::Object& object) {
    ordered_json members = ordered_json::object();
    for (const char* name : {"__CLASS", "__RELPATH"}) {
        const auto property = object.Find(name);
        members[name] = property ? AsJson(property->value) : nullptr;
    }
    for (const service::ObjectProperty& property : service::ShownPropertiesOf(object)) {
        members[property.name] = AsJson(property.value);
    }
    return members;
}

}  // namespace

std::string ObjectsAsJson(const service::ObjectList& objects) {
    ordered_json array = ordered_json::array();
    for (const auto& object : objects) {
        array.push_back(AsJson(*object));
    }
    return DocumentText(array);
}

std::string ObjectAsJsonLine(const service::Object& object) {
    return AsJson(object).dump(-1, ' ', false, ordered_json::error_handler_t::replace) + '\n';
}

std::string DocumentText(const ordered_json& document) {
    constexpr int indent = 2;
    return document.dump(indent, ' ', false, ordered_json::error_handler_t::replace) + '\n';
}

}  // namespace qv::tool
