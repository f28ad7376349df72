#include "qvsata/mof/MofText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <span>
#include <utility>

#include "qvsata/cim/Characters.h"
#include "source/Text.h"

namespace qv::service {
namespace {

constexpr std::array escapes{
    std::pair<std::string_view, std::string_view>{"\"", "\\\""},
    std::pair<std::string_view, std::string_view>{"\\", "\\\\"},
    std::pair<std::string_view, std::string_view>{"\n", "\\n"},
    std::pair<std::string_view, std::string_view>{"\r", "\\r"},
    std::pair<std::string_view, std::string_view>{"\t", "\\t"},
};

/// Returns the escape of a code unit of UTF-16.
std::string CodeText(char32_t unit) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "\\x%04X", static_cast<unsigned>(unit));
    return text.data();
}

std::string Escaped(const Character& character) {
    const auto* const escape = std::ranges::find(
        escapes, character.bytes, &std::pair<std::string_view, std::string_view>::first);
    if (escape != escapes.end()) {
        return std::string(escape->second);
    }
    if (!character.code || !ControlsText(character)) {
        return std::string(character.bytes);
    }
    const char32_t code = *character.code;
    constexpr char32_t firstPair = 0x10000;
    return code < firstPair ? CodeText(code)
                            : CodeText(0xD800 + ((code - firstPair) >> 10U)) +
                                  CodeText(0xDC00 + ((code - firstPair) & 0x3FFU));
}

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    while (!text.empty()) {
        const Character character = FirstCharacter(text);
        quoted += Escaped(character);
        text.remove_prefix(character.bytes.size());
    }
    return quoted + '"';
}

// Returns the text of one value, or of one element of an array.
std::string Text(std::monostate) {
    return "NULL";
}

std::string Text(bool flag) {
    return flag ? "TRUE" : "FALSE";
}

std::string Text(std::int64_t number) {
    return std::to_string(number);
}

std::string Text(double number) {
    std::array<char, 64> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    std::string text(buffer.data(), end);
    // MOF asks for a fraction, also before an exponent.
    if (std::isfinite(number) && text.find('.') == std::string::npos) {
        text.insert(std::min(text.find('e'), text.size()), ".0");
    }
    return text;
}

std::string Text(const std::string& text) {
    return Quoted(text);
}

template <typename Element, typename Write>
std::string List(const std::vector<Element>& elements, Write write) {
    std::string list = "{";
    for (std::string_view separator; const Element& element : elements) {
        list += separator;
        list += write(element);
        separator = ", ";
    }
    return list + "}";
}

template <typename Element>
std::string Text(const std::vector<Element>& elements) {
    return List(elements, [](const Element& element) { return Text(element); });
}

/// Returns the value of a property. 64-bit numbers are text in a CimValue, but numbers in MOF.
std::string PropertyText(CimType type, const CimValue& value) {
    if (type != CimType::sint64 && type != CimType::uint64) {
        return MofValueText(value);
    }
    if (const auto* number = std::get_if<std::string>(&value)) {
        return *number;
    }
    if (const auto* numbers = std::get_if<std::vector<std::string>>(&value)) {
        return List(*numbers, [](const std::string& number) { return number; });
    }
    return MofValueText(value);
}

std::string QualifierText(const Qualifier& qualifier) {
    const auto* flag = std::get_if<bool>(&qualifier.value);
    if (flag != nullptr && *flag) {
        return qualifier.name;
    }
    const std::string value = MofValueText(qualifier.value);
    return qualifier.name + (value.starts_with('{') ? value : "(" + value + ")");
}

std::string QualifierList(std::span<const Qualifier> qualifiers) {
    std::string list;
    for (const Qualifier& qualifier : qualifiers) {
        list += (list.empty() ? "" : ", ") + QualifierText(qualifier);
    }
    return list.empty() ? list : "[" + list + "] ";
}

}  // namespace

std::string MofValueText(const CimValue& value) {
    return std::visit([](const auto& held) { return Text(held); }, value);
}

std::string ObjectAsMof(const Object& object) {
    if (const ResolvedClassPtr definition = object.Definition()) {
        return ClassAsMof(*definition);
    }
    std::string text = "instance of " + object.ClassName() + "\n{\n";
    for (const ObjectProperty& property : PropertiesOf(object)) {
        if (!std::holds_alternative<std::monostate>(property.value)) {
            text += "    " + property.name + " = " + PropertyText(property.type, property.value) +
                    ";\n";
        }
    }
    return text + "};\n";
}

std::string ClassAsMof(const ResolvedClass& definition) {
    std::string text = QualifierList(definition.Qualifiers());
    if (!text.empty()) {
        text.back() = '\n';
    }
    text += "class " + definition.name;
    if (const std::string superclass = definition.Superclass(); !superclass.empty()) {
        text += " : " + superclass;
    }
    text += "\n{\n";
    for (const PropertyDefinition& property : definition.Properties()) {
        if (!EqualsIgnoringCase(property.declaringClass, definition.name)) {
            continue;
        }
        const bool isReference = property.type == CimType::reference;
        text += "    " + QualifierList(property.qualifiers) +
                (isReference ? property.referenceClass + " ref"
                             : std::string(CimTypeName(property.type))) +
                " " + property.name + (property.isArray ? "[]" : "");
        if (!std::holds_alternative<std::monostate>(property.defaultValue)) {
            text += " = " + PropertyText(property.type, property.defaultValue);
        }
        text += ";\n";
    }
    return text + "};\n";
}

}  // namespace qv::service
