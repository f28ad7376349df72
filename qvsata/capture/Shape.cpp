#include "qvsata/capture/Shape.h"

#include <map>
#include <type_traits>

#include "catalogue/Classes.h"
#include "qvsata/cim/ObjectPathParser.h"

namespace qv::capture {
namespace {

using namespace service;
using TextMapping = std::function<std::string(const std::string&)>;

/// The name of each published object, by the identity of its path: "QV_SATADiskDrive 3".
using ObjectNames = std::map<std::string, std::string>;

std::string IdentityOfText(const std::string& text) {
    const auto path = ParseObjectPath(text);
    return path ? IdentityOf(*path) : std::string();
}

std::string ValueAsText(const CimValue& value, const TextMapping& map) {
    return std::visit(
        [&map](const auto& held) -> std::string {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<T, std::monostate>) {
                return "null";
            } else if constexpr (std::is_same_v<T, std::string>) {
                return map(held);
            } else if constexpr (std::is_arithmetic_v<T>) {
                return std::to_string(held);
            } else {
                std::string elements;
                for (const auto& element : held) {
                    elements += ValueAsText(CimValue(element), map) + ',';
                }
                return elements;
            }
        },
        value);
}

std::string LineOf(const Object& object, const ObjectNames& names, const TextMapping& map) {
    std::string line = TextOf(object, "__CLASS");
    for (const ObjectProperty& property : PropertiesOf(object)) {
        line += '\n' + property.name + '=';
        const auto* const text = std::get_if<std::string>(&property.value);
        if (property.type == CimType::reference && text != nullptr) {
            const auto found = names.find(IdentityOfText(*text));
            line += found == names.end() ? "nothing" : found->second;
        } else {
            line += ValueAsText(property.value, map);
        }
    }
    return line;
}

}  // namespace

std::vector<std::string> ShapeOf(const Namespace& published, const TextMapping& map) {
    ObjectList objects;
    ObjectNames names;
    for (const PublishedClass& one : PublishedClasses()) {
        for (const ObjectPtr& object : published.Enumerate(one.name).objects) {
            names.emplace(IdentityOfText(TextOf(*object, "__RELPATH")),
                          std::string(one.name) + ' ' + std::to_string(names.size()));
            objects.push_back(object);
        }
    }
    std::vector<std::string> lines;
    for (const ObjectPtr& object : objects) {
        lines.push_back(LineOf(*object, names, map));
    }
    return lines;
}

}  // namespace qv::capture
