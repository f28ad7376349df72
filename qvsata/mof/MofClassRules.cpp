#include "qvsata/mof/MofClassRules.h"

#include <algorithm>
#include <array>

#include "qvsata/mof/MofNames.h"
#include "qvsata/mof/MofPropertyRules.h"
#include "source/Text.h"

namespace qv::service {
namespace {

using Breach = std::optional<ClassBreach>;

/// Bounds what a chain of classes costs: what a class inherits is looked up in its ancestors.
/// Schemas have about ten.
constexpr std::size_t mostHandedOn = 256;

/// A class with what it inherits, before it is in the repository.
class Subject {
public:
    Subject(const ClassDefinition& definition, const ClassRepository& classes)
        : definition_(definition), parent_(classes.FindDefined(definition.superclass)) {}

    const ClassDefinition& Own() const { return definition_; }
    const DefinedClass* Parent() const { return parent_.get(); }
    const std::string& ParentName() const { return parent_->Definition().name; }

    bool States(std::string_view qualifier) const {
        return HasQualifier(definition_.qualifiers, qualifier);
    }

    bool StatesFalse(std::string_view qualifier) const {
        const Qualifier* const own = FindQualifier(definition_.qualifiers, qualifier);
        return own != nullptr && own->value == CimValue(false);
    }

    /// Returns whether the class has the qualifier, its own or one that its ancestors pass on.
    bool Has(std::string_view qualifier) const {
        if (const Qualifier* const own = FindQualifier(definition_.qualifiers, qualifier)) {
            return own->value != CimValue(false);
        }
        return HandedOn(qualifier) != nullptr;
    }

    /// Returns the qualifier that the ancestors pass on; null if there is none.
    const Qualifier* HandedOn(std::string_view qualifier) const {
        const Qualifier* const found = ParentQualifier(qualifier);
        return found != nullptr && found->toSubclass && found->value != CimValue(false) ? found
                                                                                        : nullptr;
    }

    bool ParentHas(std::string_view qualifier) const {
        const Qualifier* const found = ParentQualifier(qualifier);
        return found != nullptr && found->value != CimValue(false);
    }

    bool HasKeys() const {
        return std::ranges::any_of(definition_.properties, &PropertyDefinition::isKey) ||
               (parent_ && parent_->HasKeys());
    }

    bool HasMethods() const {
        bool found = definition_.hasMethods;
        for (const DefinedClass* at = Parent(); at != nullptr && !found; at = at->Parent()) {
            found = at->Definition().hasMethods;
        }
        return found;
    }

    /// Returns the properties, with inherited ones. An override does not count.
    std::size_t CountProperties() const {
        return (parent_ ? parent_->PropertyCount() : 0) +
               CountAdded([](const PropertyDefinition&) { return true; });
    }

    std::size_t CountReferences() const {
        const auto isReference = [](const PropertyDefinition& one) {
            return one.type == CimType::reference;
        };
        const PropertyRefs inherited = parent_ ? parent_->Properties() : PropertyRefs();
        return static_cast<std::size_t>(std::ranges::count_if(inherited, isReference)) +
               CountAdded(isReference);
    }

private:
    template <typename Accepts>
    std::size_t CountAdded(Accepts accepts) const {
        return static_cast<std::size_t>(
            std::ranges::count_if(definition_.properties, [&](const PropertyDefinition& own) {
                return accepts(own) && (!parent_ || parent_->FindProperty(own.name) == nullptr);
            }));
    }

    const Qualifier* ParentQualifier(std::string_view qualifier) const {
        return parent_ ? parent_->FindClassQualifier(qualifier) : nullptr;
    }

    const ClassDefinition& definition_;
    DefinedClassPtr parent_;
};

ClassBreach AtClass(std::string what, const MofStatus* status = nullptr) {
    return {std::move(what), status};
}

ClassBreach AtQualifier(const char* qualifier, std::string what,
                        const MofStatus* status = nullptr) {
    return {std::move(what), status, {}, qualifier};
}

Breach Name(const Subject& subject) {
    const std::string& name = subject.Own().name;
    if (name.size() > longestMofName) {
        return AtClass("class " + name.substr(0, 20) + "... has a name of more than 255 characters",
                       &mof_status::classNameTooWide);
    }
    if (IsReservedName(name)) {
        return AtClass("class " + name + " begins or ends with an underscore");
    }
    return {};
}

Breach KeyOnAClass(const Subject& subject) {
    if (FindQualifier(subject.Own().qualifiers, "key") != nullptr) {
        return AtQualifier("key", "qualifier Key on a class", &mof_status::invalidQualifier);
    }
    return {};
}

Breach Terminal(const Subject& subject) {
    if (subject.ParentHas("terminal")) {
        return AtClass("class " + subject.Own().name + " derives from the terminal class " +
                       subject.ParentName());
    }
    if (subject.States("terminal") && subject.States("abstract")) {
        return AtQualifier("terminal", "class " + subject.Own().name + " is Terminal and Abstract");
    }
    return {};
}

Breach AssociationOrIndication(const Subject& subject) {
    if (subject.Has("association") && subject.Has("indication")) {
        return AtClass("class " + subject.Own().name + " is an association and an indication");
    }
    return {};
}

Breach AbstractBelow(const Subject& subject) {
    if (!subject.States("abstract") || subject.Parent() == nullptr) {
        return {};
    }
    const std::string& name = subject.Own().name;
    const std::string& parent = subject.ParentName();
    if (!subject.ParentHas("abstract")) {
        return AtQualifier("abstract",
                           "class " + name + " is abstract below the concrete class " + parent,
                           &mof_status::cannotBeAbstract);
    }
    if (subject.Parent()->IsA("__Event")) {
        return AtQualifier("abstract",
                           "class " + name + " is abstract below the event class " + parent);
    }
    return {};
}

Breach OnlyTrue(const Subject& subject) {
    for (const char* const name : {"dynamic", "singleton"}) {
        if (subject.StatesFalse(name)) {
            return AtQualifier(name, "qualifier " + std::string(name) + " takes only TRUE");
        }
    }
    return {};
}

Breach Dynamic(const Subject& subject) {
    const std::string& name = subject.Own().name;
    if (!subject.Has("dynamic")) {
        if (subject.ParentHas("dynamic")) {
            return AtClass("class " + name + " is static below the dynamic class " +
                           subject.ParentName());
        }
        if (subject.Has("provider") && !subject.States("abstract") && !subject.HasMethods()) {
            return AtClass("class " + name + " has a provider and is not dynamic");
        }
        return {};
    }
    if (!subject.Has("provider")) {
        return AtClass("class " + name + " is dynamic and has no provider");
    }
    const bool isKeyedBelowStatic = subject.Parent() != nullptr && !subject.ParentHas("abstract") &&
                                    !subject.ParentHas("dynamic") && subject.Parent()->HasKeys();
    if (isKeyedBelowStatic) {
        return AtClass("class " + name + " is dynamic below the concrete static class " +
                       subject.ParentName() + ", whose instances it cannot add to");
    }
    return {};
}

Breach Singleton(const Subject& subject) {
    if (!subject.States("singleton")) {
        return {};
    }
    const std::string& name = subject.Own().name;
    if (subject.HasKeys()) {
        return AtQualifier("singleton", "class " + name + " is a singleton and has keys",
                           &mof_status::cannotBeSingleton);
    }
    if (subject.Parent() != nullptr && !subject.ParentHas("singleton") &&
        !subject.ParentHas("abstract")) {
        return AtQualifier("singleton",
                           "class " + name + " is a singleton below the class " +
                               subject.ParentName() + ", which is none",
                           &mof_status::cannotBeSingleton);
    }
    return {};
}

Breach References(const Subject& subject) {
    if (!subject.Has("association") || subject.States("abstract")) {
        return {};
    }
    if (subject.CountReferences() < 2) {
        return AtClass("association " + subject.Own().name + " has fewer than two references");
    }
    return {};
}

Breach NumberOfProperties(const Subject& subject) {
    if (subject.CountProperties() > mostProperties) {
        return TooManyProperties(subject.Own().name);
    }
    return {};
}

Breach HandedOn(const Subject& subject) {
    const auto own = std::ranges::count_if(subject.Own().qualifiers, &Qualifier::toSubclass);
    const std::size_t inherited =
        subject.Parent() == nullptr ? 0 : subject.Parent()->HandedOnCount();
    if (inherited + static_cast<std::size_t>(own) > mostHandedOn) {
        return AtClass("class " + subject.Own().name + " and its ancestors hand on more than " +
                       std::to_string(mostHandedOn) + " qualifiers");
    }
    return {};
}

Breach Overridden(const Subject& subject) {
    for (const Qualifier& own : subject.Own().qualifiers) {
        const Qualifier* const inherited = subject.HandedOn(own.name);
        if (inherited != nullptr && !inherited->mayBeOverridden && inherited->value != own.value) {
            return AtQualifier(own.name.c_str(),
                               "qualifier " + own.name + " overrides one that is DisableOverride",
                               &mof_status::updateOverrideNotAllowed);
        }
    }
    return {};
}

Breach Properties(const Subject& subject) {
    return FindPropertyBreach(subject.Own(), subject.Parent());
}

// In checking order.
constexpr std::array rules{
    Name,          KeyOnAClass, Terminal,  AssociationOrIndication,
    AbstractBelow, OnlyTrue,    Dynamic,   HandedOn,
    Overridden,    Properties,  Singleton, NumberOfProperties,
    References,
};

}  // namespace

ClassBreach TooManyProperties(const std::string& className) {
    return AtClass(
        "class " + className + " has more than " + std::to_string(mostProperties) + " properties",
        &mof_status::tooManyProperties);
}

std::optional<ClassBreach> FindBreach(const ClassDefinition& definition,
                                      const ClassRepository& classes) {
    const Subject subject(definition, classes);
    for (const auto rule : rules) {
        if (Breach breach = rule(subject)) {
            return breach;
        }
    }
    return {};
}

}  // namespace qv::service
