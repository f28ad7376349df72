#include "qvsata/output/OutputText.h"

#include <algorithm>

#include "qvsata/mof/MofText.h"
#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Columns.h"

namespace qv::tool {
namespace {

using service::ObjectProperty;
using view::Padding;
using view::WidthOf;

/// Returns a text unchanged, and any other value as MOF writes it.
std::string ValueText(const ObjectProperty& property) {
    const auto* text = std::get_if<std::string>(&property.value);
    return text != nullptr ? view::Printable(*text) : service::MofValueText(property.value);
}

std::string Block(const service::Object& object) {
    std::string block = service::TextOf(object, "__RELPATH");
    if (block.empty()) {
        block = service::TextOf(object, "__CLASS");
    }
    block = view::Printable(block) + '\n';
    std::vector<ObjectProperty> properties = service::ShownPropertiesOf(object);
    std::erase_if(properties, [](const ObjectProperty& property) {
        return std::holds_alternative<std::monostate>(property.value);
    });
    std::size_t width = 0;
    for (const ObjectProperty& property : properties) {
        width = std::max(width, WidthOf(property.name));
    }
    for (const ObjectProperty& property : properties) {
        block += "    " + property.name + Padding(width, property.name) + " = " +
                 ValueText(property) + '\n';
    }
    return block;
}

}  // namespace

std::string ObjectsAsText(const service::ObjectList& objects) {
    if (objects.empty()) {
        return "(none)\n";
    }
    std::string text;
    for (const auto& object : objects) {
        text += text.empty() ? "" : "\n";
        text += Block(*object);
    }
    return text;
}

}  // namespace qv::tool
