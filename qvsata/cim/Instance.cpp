#include "qvsata/cim/Instance.h"

#include <utility>

#include "qvsata/cim/ClassObject.h"
#include "qvsata/cim/SystemProperties.h"

namespace qv::service {
namespace {

/// Returns the value of a key as a path writes it; nothing for a value that no key can have.
std::optional<PathKey> AsKey(const ObjectProperty& property) {
    if (const auto* text = std::get_if<std::string>(&property.value)) {
        const bool isNumber = property.type == CimType::sint64 || property.type == CimType::uint64;
        return PathKey{property.name, *text, !isNumber};
    }
    if (const auto* number = std::get_if<std::int64_t>(&property.value)) {
        return PathKey{property.name, std::to_string(*number), false};
    }
    if (const auto* flag = std::get_if<bool>(&property.value)) {
        return PathKey{property.name, *flag ? "TRUE" : "FALSE", false};
    }
    return std::nullopt;
}

std::string WithQuotesEscaped(std::string_view text) {
    std::string escaped;
    for (const char character : text) {
        if (character == '"') {
            escaped += '\\';
        }
        escaped += character;
    }
    return escaped;
}

/// Returns a reference as a key: the backslashes of server and namespace are escaped, which marks
/// them as such; the path after them is the provider's own text.
std::string ReferenceAsPut(std::string_view text) {
    const std::size_t pathStart = text.starts_with(R"(\\)") ? text.find(':') : std::string::npos;
    if (pathStart == std::string::npos) {
        return WithQuotesEscaped(text);
    }
    return EscapePathValue(text.substr(0, pathStart)) + WithQuotesEscaped(text.substr(pathStart));
}

}  // namespace

Instance::Instance(ResolvedClassPtr type) : type_(std::move(type)) {}

Instance::Instance(const Instance& other)
    : Object(other), type_(other.type_), values_(other.values_), puts_(other.puts_) {}

void Instance::Set(std::string_view name, CimValue value) {
    if (const PropertyDefinition* property = type_->Find(name)) {
        values_[property] = std::move(value);
    }
}

bool Instance::Reset(std::string_view name) {
    const PropertyDefinition* property = type_->Find(name);
    values_.erase(property);
    return property != nullptr;
}

std::optional<ObjectProperty> Instance::Find(std::string_view name) const {
    if (IsSystemName(name)) {
        return SystemProperty(name, *type_, Genus::instance, RelativePath());
    }
    const PropertyDefinition* definition = type_->Find(name);
    if (definition == nullptr) {
        return std::nullopt;
    }
    ObjectProperty property = AsDefined(*definition, *type_);
    if (const auto own = values_.find(definition); own != values_.end()) {
        property.value = own->second;
    }
    return property;
}

std::vector<std::string> Instance::Names() const {
    return PropertyNames(*type_);
}

std::vector<Reference> Instance::References() const {
    return ReferencesAmong(PropertiesOf(*this));
}

std::optional<std::string> Instance::RelativePath() const {
    ObjectPath path;
    path.className = type_->name;
    for (const PropertyDefinition& property : type_->Properties()) {
        if (property.isKey) {
            std::optional<PathKey> key = AsKey(Find(property.name).value());
            if (!key) {
                return std::nullopt;
            }
            path.keys.push_back(std::move(*key));
        }
    }
    if (path.keys.empty()) {
        return std::nullopt;
    }
    return FormatObjectPath(path, PathForm::relative, KeyOrder::alphabetical);
}

std::optional<std::string> Instance::PathAsPut() const {
    if (puts_.empty()) {
        return std::nullopt;
    }
    std::string path = type_->name;
    for (char separator = '.'; const PutCall& put : puts_) {
        const std::optional<ObjectProperty> property = Find(put.name);
        const std::optional<PathKey> key =
            property && property->isKey ? AsKey(*property) : std::nullopt;
        if (!key) {
            continue;
        }
        const std::string text = property->type == CimType::reference
                                     ? ReferenceAsPut(key->value)
                                     : WithQuotesEscaped(key->value);
        path += separator + put.name + '=' + (key->quoted ? '"' + text + '"' : text);
        separator = ',';
    }
    return path;
}

}  // namespace qv::service
