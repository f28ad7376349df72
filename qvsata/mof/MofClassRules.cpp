#include "qvsata/mof/MofClassRules.h"

#include <algorithm>
#include <array>

#include "qvsata/mof/MofNames.h"
#include "qvsata/mof/MofPropertyRules.h"
#include "source/Text.h"

namespace qv::service {
namespace {

using Breach = std::optional<ClassBreach>;

constexpr std::size_t mostProperties = 1024;

/// A class with what it inherits, before it is in the repository.
class Subject {
public:
    Subject(const ClassDefinition& definition, const ClassRepository& classes)
        : definition_(definition),
          classes_(classes),
          parent_(classes.Find(definition.superclass)) {}

    const ClassDefinition& Own() const { return definition_; }
    const ClassDefinition* Parent() const { return parent_; }
    const ClassRepository& Classes() const { return classes_; }

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
        const Qualifier* const found =
            parent_ == nullptr ? nullptr : classes_.ClassQualifier(parent_->name, qualifier);
        return found != nullptr && found->toSubclass && found->value != CimValue(false) ? found
                                                                                        : nullptr;
    }

    bool ParentHas(std::string_view qualifier) const {
        const Qualifier* const found =
            parent_ == nullptr ? nullptr : classes_.ClassQualifier(parent_->name, qualifier);
        return found != nullptr && found->value != CimValue(false);
    }

    bool HasKeys() const {
        return std::ranges::any_of(definition_.properties, &PropertyDefinition::isKey) ||
               !classes_.Keys(definition_.superclass).empty();
    }

    bool HasMethods() const {
        bool found = definition_.hasMethods;
        for (const ClassDefinition* at = parent_; at != nullptr && !found;
             at = classes_.Find(at->superclass)) {
            found = at->hasMethods;
        }
        return found;
    }

    /// Returns how many of the class's properties, including inherited ones, `accepts` holds for.
    template <typename Accepts>
    std::size_t Count(Accepts accepts) const {
        const std::vector<PropertyDefinition> inherited =
            classes_.Properties(definition_.superclass);
        const auto isAdded = [&](const PropertyDefinition& own) {
            return accepts(own) && FindDefinition(inherited, own.name) == nullptr;
        };
        return static_cast<std::size_t>(std::ranges::count_if(inherited, accepts) +
                                        std::ranges::count_if(definition_.properties, isAdded));
    }

private:
    const ClassDefinition& definition_;
    const ClassRepository& classes_;
    const ClassDefinition* parent_;
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
                       subject.Parent()->name);
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
    const std::string& parent = subject.Parent()->name;
    if (!subject.ParentHas("abstract")) {
        return AtQualifier("abstract",
                           "class " + name + " is abstract below the concrete class " + parent,
                           &mof_status::cannotBeAbstract);
    }
    if (subject.Classes().IsA(parent, "__Event")) {
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
                           subject.Parent()->name);
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
                                    !subject.ParentHas("dynamic") &&
                                    !subject.Classes().Keys(subject.Parent()->name).empty();
    if (isKeyedBelowStatic) {
        return AtClass("class " + name + " is dynamic below the concrete static class " +
                       subject.Parent()->name + ", whose instances it cannot add to");
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
                               subject.Parent()->name + ", which is none",
                           &mof_status::cannotBeSingleton);
    }
    return {};
}

Breach References(const Subject& subject) {
    if (!subject.Has("association") || subject.States("abstract")) {
        return {};
    }
    const std::size_t references =
        subject.Count([](const PropertyDefinition& one) { return one.type == CimType::reference; });
    if (references < 2) {
        return AtClass("association " + subject.Own().name + " has fewer than two references");
    }
    return {};
}

Breach NumberOfProperties(const Subject& subject) {
    if (subject.Count([](const PropertyDefinition&) { return true; }) > mostProperties) {
        return AtClass("class " + subject.Own().name + " has more than 1024 properties",
                       &mof_status::tooManyProperties);
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
    return FindPropertyBreach(subject.Own(),
                              subject.Classes().Properties(subject.Own().superclass));
}

// In checking order.
constexpr std::array rules{
    Name,       KeyOnAClass, Terminal,  AssociationOrIndication, AbstractBelow, OnlyTrue, Dynamic,
    Overridden, Properties,  Singleton, NumberOfProperties,      References,
};

}  // namespace

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
