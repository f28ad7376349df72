#include "qvsata/cim/ClassRepository.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "qvsata/cim/ObjectPath.h"
#include "qvsata/cim/classes/SystemClasses.h"
#include "source/Text.h"

namespace qv::service {
namespace {

/// Returns a key that is equal for all spellings of a namespace.
std::string NamespaceKey(std::string_view path) {
    std::string key = FoldCase(NormalNamespace(path));
    key.erase(key.find_last_not_of('\\') + 1);
    return key;
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

using ClassesByName = std::unordered_map<std::string, DefinedClassPtr>;

/// Returns the management service's own classes, which all repositories share, by folded name.
const ClassesByName& SystemClassesByName() {
    static const ClassesByName byName = [] {
        ClassesByName classes;
        for (ClassDefinition& definition : SystemClasses()) {
            const auto parent = classes.find(FoldCase(definition.superclass));
            std::string name = FoldCase(definition.name);
            classes.emplace(
                std::move(name),
                std::make_shared<const DefinedClass>(
                    std::move(definition), parent == classes.end() ? nullptr : parent->second));
        }
        return classes;
    }();
    return byName;
}

}  // namespace

void ClassRepository::Add(ClassDefinition definition) {
    if (Find(definition.name) != nullptr) {
        throw std::invalid_argument("class " + definition.name + " is defined already");
    }
    DefinedClassPtr parent = FindDefined(definition.superclass);
    if (!definition.superclass.empty() && parent == nullptr) {
        throw std::invalid_argument("superclass " + definition.superclass + " is not defined");
    }
    places_.emplace(FoldCase(definition.name), nextNumber_);
    below_[FoldCase(definition.superclass)].insert(nextNumber_);
    classes_.emplace(nextNumber_++, std::make_shared<const DefinedClass>(std::move(definition),
                                                                         std::move(parent)));
}

void ClassRepository::Replace(ClassDefinition definition) {
    const auto put = [this](ClassDefinition changed) {
        DefinedClassPtr& place = classes_.at(places_.at(FoldCase(changed.name)));
        const std::size_t number = places_.at(FoldCase(changed.name));
        below_[FoldCase(place->Definition().superclass)].erase(number);
        below_[FoldCase(changed.superclass)].insert(number);
        DefinedClassPtr parent = FindDefined(changed.superclass);
        place = std::make_shared<const DefinedClass>(std::move(changed), std::move(parent));
    };
    const std::vector<DefinedClassPtr> below = ClassesBelow(definition.name);
    put(std::move(definition));
    for (const DefinedClassPtr& one : below) {
        put(one->Definition());
    }
}

void ClassRepository::Add(InstanceDefinition instance) {
    const std::string path = RelativePath(instance);
    if (!path.empty()) {
        RemoveInstance(path);
    }
    numbers_.emplace(FoldCase(path), nextNumber_);
    ofClass_[FoldCase(instance.className)].insert(nextNumber_);
    instances_.emplace(nextNumber_++, std::move(instance));
}

std::vector<DefinedClassPtr> ClassRepository::ClassesBelow(std::string_view className) const {
    std::vector<DefinedClassPtr> found;
    std::string name = FoldCase(className);
    for (std::size_t next = 0;; ++next) {
        if (const auto direct = below_.find(name); direct != below_.end()) {
            for (const std::size_t number : direct->second) {
                found.push_back(classes_.at(number));
            }
        }
        if (next == found.size()) {
            return found;
        }
        name = FoldCase(found[next]->Definition().name);
    }
}

bool ClassRepository::HasInstancesOf(std::string_view className) const {
    const auto has = [this](std::string_view name) {
        const auto own = ofClass_.find(FoldCase(name));
        return own != ofClass_.end() && !own->second.empty();
    };
    return has(className) ||
           std::ranges::any_of(ClassesBelow(className), [&has](const DefinedClassPtr& one) {
               return has(one->Definition().name);
           });
}

bool ClassRepository::RemoveClass(std::string_view className) {
    const auto found = places_.find(FoldCase(className));
    if (found == places_.end()) {
        return false;
    }
    std::vector<DefinedClassPtr> doomed = ClassesBelow(className);
    doomed.push_back(classes_.at(found->second));
    for (const DefinedClassPtr& one : doomed) {
        const std::string name = FoldCase(one->Definition().name);
        for (const std::size_t number : ofClass_[name]) {
            const auto instance = instances_.find(number);
            numbers_.erase({FoldCase(RelativePath(instance->second)), number});
            instances_.erase(instance);
        }
        ofClass_.erase(name);
        const std::size_t number = places_.at(name);
        below_[FoldCase(one->Definition().superclass)].erase(number);
        classes_.erase(number);
        places_.erase(name);
    }
    return true;
}

bool ClassRepository::HasInstance(std::string_view relativePath) const {
    const std::string path = FoldCase(relativePath);
    const auto found = numbers_.lower_bound({path, 0});
    return found != numbers_.end() && found->first == path;
}

bool ClassRepository::RemoveInstance(std::string_view relativePath) {
    const std::string path = FoldCase(relativePath);
    const auto first = numbers_.lower_bound({path, 0});
    auto end = first;
    for (; end != numbers_.end() && end->first == path; ++end) {
        const auto instance = instances_.find(end->second);
        ofClass_.at(FoldCase(instance->second.className)).erase(end->second);
        instances_.erase(instance);
    }
    const bool hasRemoved = first != end;
    numbers_.erase(first, end);
    return hasRemoved;
}

DefinedClassPtr ClassRepository::FindDefined(std::string_view className) const {
    const std::string name = FoldCase(className);
    if (const auto found = places_.find(name); found != places_.end()) {
        return classes_.at(found->second);
    }
    const auto found = SystemClassesByName().find(name);
    return found == SystemClassesByName().end() ? nullptr : found->second;
}

const ClassDefinition* ClassRepository::Find(std::string_view className) const {
    const DefinedClassPtr found = FindDefined(className);
    return found == nullptr ? nullptr : &found->Definition();
}

Refs<ClassDefinition> ClassRepository::Classes() const {
    Refs<ClassDefinition> classes;
    for (const auto& [number, one] : classes_) {
        classes.emplace_back(one->Definition());
    }
    return classes;
}

Refs<InstanceDefinition> ClassRepository::Instances() const {
    Refs<InstanceDefinition> instances;
    for (const auto& [number, instance] : instances_) {
        instances.emplace_back(instance);
    }
    return instances;
}

PropertyRefs ClassRepository::Properties(std::string_view className) const {
    const DefinedClassPtr found = FindDefined(className);
    return found == nullptr ? PropertyRefs() : found->Properties();
}

PropertyRefs ClassRepository::Keys(std::string_view className) const {
    PropertyRefs keys = Properties(className);
    std::erase_if(keys, [](const PropertyDefinition& property) { return !property.isKey; });
    return keys;
}

std::vector<std::string> ClassRepository::Derivation(std::string_view className) const {
    const DefinedClassPtr found = FindDefined(className);
    return found == nullptr ? std::vector<std::string>() : found->Derivation();
}

bool ClassRepository::IsA(std::string_view className, std::string_view ancestor) const {
    const DefinedClassPtr found = FindDefined(className);
    return found != nullptr && found->IsA(ancestor);
}

const Qualifier* ClassRepository::ClassQualifier(std::string_view className,
                                                 std::string_view name) const {
    const DefinedClassPtr found = FindDefined(className);
    return found == nullptr ? nullptr : found->FindClassQualifier(name);
}

std::string ClassRepository::RelativePath(const InstanceDefinition& instance) const {
    PropertyRefs keys = Keys(instance.className);
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
