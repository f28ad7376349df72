#include "tests/golden/GoldenText.h"

#include <algorithm>
#include <array>
#include <ranges>
#include <utility>

namespace qv::test {
namespace {

namespace variant = service::variant;
using service::VariantType;

constexpr std::array<std::pair<VariantType, std::string_view>, 5> typeNames{
    {{variant::null, "VT_NULL"},
     {variant::int32, "VT_I4"},
     {variant::text, "VT_BSTR"},
     {variant::boolean, "VT_BOOL"},
     {variant::uint8, "VT_UI1"}}};

struct ValueWriter {
    std::string operator()(std::monostate) const { return "null"; }
    std::string operator()(bool flag) const { return flag ? "true" : "false"; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const { return std::to_string(number); }
    std::string operator()(const std::string& text) const { return '"' + text + '"'; }
    template <typename Element>
    std::string operator()(const std::vector<Element>& elements) const {
        std::string list;
        for (const Element& element : elements) {
            list += (list.empty() ? "" : ", ") + (*this)(element);
        }
        return '{' + list + '}';
    }
};

std::string KeyText(const PublishedProperty& key, std::string_view prefix) {
    const auto* text = std::get_if<std::string>(&key.value);
    std::string_view rest = text == nullptr ? std::string_view() : *text;
    if (rest.starts_with(prefix)) {
        rest.remove_prefix(prefix.size());
    }
    std::string quoted = "\"";
    for (const char character : rest) {
        if (character == '"') {
            quoted += '\\';
        }
        quoted += character;
    }
    return quoted + '"';
}

}  // namespace

std::string NamespacePrefix(std::string_view server) {
    return R"(\\)" + std::string(server) + R"(\root\QVQ:)";
}

std::string TextOf(const PublishedInstance& instance, std::string_view name) {
    for (const PublishedProperty& property : std::views::reverse(instance.properties)) {
        if (property.name == name) {
            const auto* text = std::get_if<std::string>(&property.value);
            return text == nullptr ? std::string() : *text;
        }
    }
    return {};
}

std::string PathOf(const PublishedInstance& instance, std::string_view prefix) {
    std::string path = instance.className;
    for (char separator = '.'; const PublishedProperty& property : instance.properties) {
        if (property.isKey) {
            path += std::exchange(separator, ',') + property.name + '=' + KeyText(property, prefix);
        }
    }
    return path;
}

std::string VariantTypeName(VariantType variantType) {
    const auto single = static_cast<VariantType>(variantType & ~variant::array);
    const auto* found =
        std::ranges::find(typeNames, single, &std::pair<VariantType, std::string_view>::first);
    const std::string name(found == typeNames.end() ? "VT_?" : found->second);
    return variantType == single ? name : "VT_ARRAY|" + name;
}

std::string ValueText(const service::CimValue& value) {
    return std::visit(ValueWriter(), value);
}

std::string GoldenText(const std::vector<PublishedInstances>& published, std::string_view prefix) {
    std::string text;
    for (const auto& [className, instances] : published) {
        text += "== " + className + ": " + std::to_string(instances.size()) + "\n\n";
        for (const PublishedInstance& instance : instances) {
            text += PathOf(instance, prefix) + '\n';
            for (const PublishedProperty& property : instance.properties) {
                text += (property.isKey ? "  key " : "      ") + property.name + ": " +
                        VariantTypeName(property.variantType) + ' ' + ValueText(property.value) +
                        '\n';
            }
            text += '\n';
        }
    }
    return text;
}

}  // namespace qv::test
