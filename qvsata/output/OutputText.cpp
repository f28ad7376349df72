#include "qvsata/output/OutputText.h"

#include <algorithm>
#include <ranges>

#include "qvsata/mof/MofText.h"
#include "qvsata/view/Columns.h"

namespace qv::tool {
namespace {

using service::ObjectProperty;
using view::Padding;
using view::WidthOf;

/// Returns a text unchanged, and any other value as MOF writes it.
std::string ValueText(const ObjectProperty& property) {
    const auto* text = std::get_if<std::string>(&property.value);
    return text != nullptr ? *text : service::MofValueText(property.value);
}

std::string Block(const service::Object& object) {
    std::string block = service::TextOf(object, "__RELPATH");
    if (block.empty()) {
        block = service::TextOf(object, "__CLASS");
    }
    block += '\n';
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

bool IsNumber(const std::string& text) {
    return !text.empty() && std::ranges::all_of(text, [](char character) {
        return character >= '0' && character <= '9';
    });
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

std::string TableAsText(const Table& table) {
    std::vector<std::size_t> widths;
    std::ranges::transform(table.heading, std::back_inserter(widths), WidthOf);
    for (const auto& row : table.rows) {
        for (std::size_t column = 0; column < widths.size(); ++column) {
            widths[column] = std::max(widths[column], WidthOf(row[column]));
        }
    }
    std::string text;
    const auto append = [&](const std::vector<std::string>& row) {
        std::string line;
        for (std::size_t column = 0; column < widths.size(); ++column) {
            const std::string padding = Padding(widths[column], row[column]);
            line += column == 0 ? "" : "  ";
            line += IsNumber(row[column]) ? padding + row[column] : row[column] + padding;
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + '\n';
    };
    append(table.heading);
    std::ranges::for_each(table.rows, append);
    return text;
}

}  // namespace qv::tool
