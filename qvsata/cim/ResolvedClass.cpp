#include "qvsata/cim/ResolvedClass.h"

#include <algorithm>
#include <iterator>

#include "source/Text.h"

namespace qv::service {

const PropertyDefinition* ResolvedClass::Find(std::string_view property) const {
    const auto found = std::ranges::find_if(
        properties, [property](const auto& one) { return EqualsIgnoringCase(one.name, property); });
    return found == properties.end() ? nullptr : &*found;
}

bool ResolvedClass::HasQualifier(std::string_view qualifier) const {
    return FindQualifier(qualifiers, qualifier) != nullptr ||
           FindQualifier(inheritedQualifiers, qualifier) != nullptr;
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
    auto resolved = std::make_shared<ResolvedClass>();
    resolved->name = definition->name;
    resolved->server = server;
    resolved->nameSpace = nameSpace;
    resolved->derivation = repository.Derivation(className);
    resolved->qualifiers = definition->qualifiers;
    resolved->properties = repository.Properties(className);
    const Qualifier* dynamic = repository.ClassQualifier(className, "dynamic");
    resolved->isDynamic = dynamic != nullptr && dynamic->value == CimValue(true) &&
                          !HasQualifier(definition->qualifiers, "abstract");
    for (const std::string& ancestor : resolved->derivation) {
        std::ranges::copy_if(repository.Find(ancestor)->qualifiers,
                             std::back_inserter(resolved->inheritedQualifiers),
                             &Qualifier::toSubclass);
    }
    return resolved;
}

}  // namespace qv::service
