#include "qvsata/output/OutputJson.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>

#include "qvsata/cim/Characters.h"

namespace qv::tool {
namespace {

using nlohmann::ordered_json;

template <typename Number>
bool IsWhole(const std::string& text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && rest == end;
}

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

/// Returns whole numbers as numbers: those of 64 bits are texts in an object.
ordered_json AsJson(const service::ObjectProperty& property) {
    const auto* const text = std::get_if<std::string>(&property.value);
    if (text != nullptr && property.type == service::CimType::uint64) {
        std::uint64_t number = 0;
        if (IsWhole(*text, number)) {
            return number;
        }
    }
    if (text != nullptr && property.type == service::CimType::sint64) {
        std::int64_t number = 0;
        if (IsWhole(*text, number)) {
            return number;
        }
    }
    return AsJson(property.value);
}

std::string Escape(char32_t code) {
    std::array<char, 16> text{};
    if (code < 0x10000) {
        std::snprintf(text.data(), text.size(), "\\u%04x", static_cast<unsigned>(code));
    } else {
        const auto beyond = static_cast<unsigned>(code) - 0x10000U;
        std::snprintf(text.data(), text.size(), "\\u%04x\\u%04x", 0xD800U + (beyond >> 10U),
                      0xDC00U + (beyond & 0x3FFU));
    }
    return text.data();
}

/// Escapes what would control a terminal or turn the direction of writing, as far as JSON itself
/// does not. The document keeps its value.
std::string SafeForTerminal(std::string_view json) {
    constexpr char32_t firstUnescaped = 0x7F;
    std::string safe;
    safe.reserve(json.size());
    while (!json.empty()) {
        const service::Character character = service::FirstCharacter(json);
        const char32_t code = character.code.value_or(0);
        if (code >= firstUnescaped && service::ControlsText(character)) {
            safe += Escape(code);
        } else {
            safe += character.bytes;
        }
        json.remove_prefix(character.bytes.size());
    }
    return safe;
}

ordered_json Versioned(const ordered_json& content) {
    ordered_json document{{"formatVersion", jsonFormatVersion}};
    document.update(content);
    return document;
}

}  // namespace

ordered_json ObjectAsJson(const service::Object& object) {
    ordered_json members = ordered_json::object();
    for (const char* name : {"__CLASS", "__RELPATH"}) {
        const auto property = object.Find(name);
        members[name] = property ? AsJson(property->value) : nullptr;
    }
    for (const service::ObjectProperty& property : service::ShownPropertiesOf(object)) {
        members[property.name] = AsJson(property);
    }
    return members;
}

ordered_json ObjectsAsJson(const service::ObjectList& objects) {
    ordered_json array = ordered_json::array();
    for (const auto& object : objects) {
        array.push_back(ObjectAsJson(*object));
    }
    return array;
}

std::string DocumentText(const ordered_json& content) {
    constexpr int indent = 2;
    return SafeForTerminal(Versioned(content).dump(indent, ' ', false,
                                                   ordered_json::error_handler_t::replace)) +
           '\n';
}

std::string DocumentLine(const ordered_json& content) {
    return SafeForTerminal(
               Versioned(content).dump(-1, ' ', false, ordered_json::error_handler_t::replace)) +
           '\n';
}

}  // namespace qv::tool
