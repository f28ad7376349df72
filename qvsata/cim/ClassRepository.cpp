#include "qvsata/cim/ClassRepository.h"

#include <algorithm>
#include <stdexcept>

#include "qvsata/cim/ObjectPath.h"
#include "qvsata/cim/SystemClasses.h"
#include "source/Text.h"

namespace qv::service {
namespace {

/// Returns a key that is equal for all spellings of a namespace.
std::string NamespaceKey(std::string_view path) {
    std::string key = FoldCase(NormalNamespace(path));
    key.erase(key.find_last_not_of('\\') + 1);
    return key;
}

void Override(PropertyDefinition& inherited, const PropertyDefinition& declared) {
    PropertyDefinition resolved = declared;
    resolved.isKey = inherited.isKey || declared.isKey;
    resolved.declaringClass = inherited.declaringClass;
    if (resolved.defaultValue.index() == 0) {
        resolved.defaultValue = inherited.defaultValue;
    }
    inherited = std::move(resolved);
}

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '\\' || c == '"') {
            quoted += '\\';
        }
        quoted += c;
    }
    return quoted += '"';
}

/// Returns a key's value as a path writes it; empty if it has no value.
std::string KeyText(const PropertyDefinition& key, const CimValue* value) {
    if (value == nullptr) {
        return {};
    }
    if (const auto* const text = std::get_if<std::string>(value)) {
        const bool isNumber = key.type == CimType::sint64 || key.type == CimType::uint64;
        return isNumber ? *text : Quoted(*text);
    }
    if (const auto* const number = std::get_if<std::int64_t>(value)) {
        return std::to_string(*number);
    }
    if (const auto* const truth = std::get_if<bool>(value)) {
        return *truth ? "TRUE" : "FALSE";
    }
    return {};
}

std::size_t SystemClassCount() {
    static const std::size_t count = SystemClasses().size();
    return count;
}

}  // namespace

ClassRepository::ClassRepository() {
    for (ClassDefinition& definition : SystemClasses()) {
        Add(std::move(definition));
    }
}

void ClassRepository::Add(ClassDefinition definition) {
    if (Find(definition.name) != nullptr) {
        throw std::invalid_argument("class " + definition.name + " is defined already");
    }
    if (!definition.superclass.empty() && Find(definition.superclass) == nullptr) {
        throw std::invalid_argument("superclass " + definition.superclass + " is not defined");
    }
    index_.emplace(FoldCase(definition.name), classes_.size());
    classes_.push_back(std::move(definition));
}

void ClassRepository::Replace(ClassDefinition definition) {
    classes_[index_.at(FoldCase(definition.name))] = std::move(definition);
}

void ClassRepository::Add(InstanceDefinition instance) {
    const std::string path = RelativePath(instance);
    if (!path.empty()) {
        RemoveInstance(path);
    }
    instances_.push_back(std::move(instance));
}

bool ClassRepository::RemoveClass(std::string_view className) {
    const auto found = index_.find(FoldCase(className));
    if (found == index_.end() || found->second < SystemClassCount()) {
        return false;
    }
    const std::string name = classes_[found->second].name;
    std::erase_if(instances_, [&](const InstanceDefinition& instance) {
        return IsA(instance.className, name);
    });
    std::vector<std::string> doomed;
    for (const ClassDefinition& definition : classes_) {
        if (IsA(definition.name, name)) {
            doomed.push_back(definition.name);
        }
    }
    std::erase_if(classes_, [&](const ClassDefinition& definition) {
        return std::ranges::find(doomed, definition.name) != doomed.end();
    });
    index_.clear();
    for (std::size_t position = 0; position < classes_.size(); ++position) {
        index_.emplace(FoldCase(classes_[position].name), position);
    }
    return true;
}

bool ClassRepository::HasInstance(std::string_view relativePath) const {
    return std::ranges::any_of(instances_, [&](const InstanceDefinition& instance) {
        return EqualsIgnoringCase(RelativePath(instance), relativePath);
    });
}

bool ClassRepository::RemoveInstance(std::string_view relativePath) {
    return std::erase_if(instances_, [&](const InstanceDefinition& instance) {
               return EqualsIgnoringCase(RelativePath(instance), relativePath);
           }) != 0;
}

const ClassDefinition* ClassRepository::Find(std::string_view className) const {
    const auto found = index_.find(FoldCase(className));
    return found == index_.end() ? nullptr : &classes_[found->second];
}

std::span<const ClassDefinition> ClassRepository::Classes() const {
    return std::span(classes_).subspan(SystemClassCount());
}

std::vector<PropertyDefinition> ClassRepository::Properties(std::string_view className) const {
    const ClassDefinition* const definition = Find(className);
    if (definition == nullptr) {
        return {};
    }
    std::vector<PropertyDefinition> properties = Properties(definition->superclass);
    for (const PropertyDefinition& declared : definition->properties) {
        const auto inherited =
            std::ranges::find_if(properties, [&declared](const PropertyDefinition& property) {
                return EqualsIgnoringCase(property.name, declared.name);
            });
        if (inherited == properties.end()) {
            properties.push_back(declared);
        } else {
            Override(*inherited, declared);
        }
    }
    return properties;
}

std::vector<PropertyDefinition> ClassRepository::Keys(std::string_view className) const {
    std::vector<PropertyDefinition> keys = Properties(className);
    std::erase_if(keys, [](const PropertyDefinition& property) { return !property.isKey; });
    return keys;
}

std::vector<std::string> ClassRepository::Derivation(std::string_view className) const {
    std::vector<std::string> ancestors;
    for (const ClassDefinition* at = Find(className); at != nullptr; at = Find(at->superclass)) {
        ancestors.push_back(at->name);
    }
    if (!ancestors.empty()) {
        ancestors.erase(ancestors.begin());
    }
    return ancestors;
}

bool ClassRepository::IsA(std::string_view className, std::string_view ancestor) const {
    for (const ClassDefinition* at = Find(className); at != nullptr; at = Find(at->superclass)) {
        if (EqualsIgnoringCase(at->name, ancestor)) {
            return true;
        }
    }
    return false;
}

const Qualifier* ClassRepository::ClassQualifier(std::string_view className,
                                                 std::string_view name) const {
    const ClassDefinition* at = Find(className);
    if (at == nullptr) {
        return nullptr;
    }
    if (const Qualifier* const own = FindQualifier(at->qualifiers, name)) {
        return own;
    }
    while ((at = Find(at->superclass)) != nullptr) {
        const Qualifier* const inherited = FindQualifier(at->qualifiers, name);
        if (inherited != nullptr && inherited->toSubclass) {
            return inherited;
        }
    }
    return nullptr;
}

std::string ClassRepository::RelativePath(const InstanceDefinition& instance) const {
    std::vector<PropertyDefinition> keys = Keys(instance.className);
    std::ranges::sort(keys, {}, [](const PropertyDefinition& key) { return FoldCase(key.name); });
    std::string path;
    for (const PropertyDefinition& key : keys) {
        const std::string text = KeyText(key, instance.Find(key.name));
        if (text.empty()) {
            return {};
        }
        path += (path.empty() ? Find(instance.className)->name + "." : ",") + key.name + "=" + text;
    }
    return path;
}

ClassRepository& Namespaces::Of(std::string_view namespacePath) {
    return repositories_[NamespaceKey(namespacePath)];
}

const ClassRepository* Namespaces::Find(std::string_view namespacePath) const {
    const auto found = repositories_.find(NamespaceKey(namespacePath));
    return found == repositories_.end() ? nullptr : &found->second;
}

}  // namespace qv::service
