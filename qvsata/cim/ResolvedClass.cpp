#include "qvsata/cim/ResolvedClass.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "source/Text.h"

namespace qv::service {

ResolvedClass::ResolvedClass(std::shared_ptr<const ClassContents> contents)
    : shared(std::move(contents)), derivation(shared->derivation), properties(shared->properties) {}

const PropertyDefinition* ResolvedClass::Find(std::string_view property) const {
    const auto found = std::ranges::find_if(
        properties, [property](const auto& one) { return EqualsIgnoringCase(one.name, property); });
    return found == properties.end() ? nullptr : &*found;
}

bool ResolvedClass::HasQualifier(std::string_view qualifier) const {
    return shared && (FindQualifier(shared->qualifiers, qualifier) != nullptr ||
                      FindQualifier(shared->inheritedQualifiers, qualifier) != nullptr);
}

bool ResolvedClass::IsA(std::string_view className) const {
    const auto isIt = [className](const std::string& one) {
        return EqualsIgnoringCase(one, className);
    };
    return isIt(name) || std::ranges::any_of(derivation, isIt);
}

ResolvedClassPtr Resolve(const ClassRepository& repository, std::string_view className,
                         std::string_view server, std::string_view nameSpace) {
    const ClassDefinition* definition = repository.Find(className);
    if (definition == nullptr) {
        return nullptr;
    }
    auto contents = std::make_shared<ClassContents>();
    contents->derivation = repository.Derivation(className);
    contents->qualifiers = definition->qualifiers;
    contents->properties = repository.Properties(className);
    for (const std::string& ancestor : contents->derivation) {
        std::ranges::copy_if(repository.Find(ancestor)->qualifiers,
                             std::back_inserter(contents->inheritedQualifiers),
                             &Qualifier::toSubclass);
    }
    auto resolved = std::make_shared<ResolvedClass>(std::move(contents));
    resolved->name = definition->name;
    resolved->server = server;
    resolved->nameSpace = nameSpace;
    const Qualifier* dynamic = repository.ClassQualifier(className, "dynamic");
    resolved->isDynamic = dynamic != nullptr && dynamic->value == CimValue(true) &&
                          !HasQualifier(definition->qualifiers, "abstract");
    return resolved;
}

ResolvedClassPtr OnServer(const ResolvedClass& type, std::string_view server) {
    auto other = std::make_shared<ResolvedClass>(type);
    other->server = server;
    return other;
}

}  // namespace qv::service
