#include "qvsata/cim/ResolvedClass.h"

#include <utility>

#include "source/Text.h"

namespace qv::service {

std::span<const Qualifier> ResolvedClass::Qualifiers() const {
    return definition ? std::span<const Qualifier>(definition->Definition().qualifiers)
                      : std::span<const Qualifier>();
}

PropertyRefs ResolvedClass::Properties() const {
    return definition ? definition->Properties() : PropertyRefs();
}

std::size_t ResolvedClass::PropertyCount() const {
    return definition ? definition->PropertyCount() : 0;
}

const PropertyDefinition* ResolvedClass::Find(std::string_view property) const {
    return definition ? definition->FindProperty(property) : nullptr;
}

bool ResolvedClass::HasQualifier(std::string_view qualifier) const {
    return definition && definition->FindClassQualifier(qualifier) != nullptr;
}

std::string ResolvedClass::Superclass() const {
    return definition && definition->Parent() ? definition->Parent()->Definition().name : "";
}

std::string ResolvedClass::Dynasty() const {
    return definition ? definition->Topmost().Definition().name : name;
}

std::vector<std::string> ResolvedClass::Derivation() const {
    return definition ? definition->Derivation() : std::vector<std::string>();
}

bool ResolvedClass::IsA(std::string_view className) const {
    return definition ? definition->IsA(className) : EqualsIgnoringCase(name, className);
}

ResolvedClassPtr Resolve(DefinedClassPtr definition, std::string_view server,
                         std::string_view nameSpace) {
    auto resolved = std::make_shared<ResolvedClass>();
    resolved->name = definition->Definition().name;
    resolved->server = server;
    resolved->nameSpace = nameSpace;
    const Qualifier* const dynamic = definition->FindClassQualifier("dynamic");
    resolved->isDynamic = dynamic != nullptr && dynamic->value == CimValue(true) &&
                          !HasQualifier(definition->Definition().qualifiers, "abstract");
    resolved->definition = std::move(definition);
    return resolved;
}

ResolvedClassPtr OnServer(const ResolvedClass& type, std::string_view server) {
    auto other = std::make_shared<ResolvedClass>(type);
    other->server = server;
    return other;
}

}  // namespace qv::service
