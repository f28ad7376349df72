#include "qvsata/mof/MofPropertyRules.h"

#include <algorithm>
#include <array>

#include "qvsata/mof/MofNames.h"
#include "source/Text.h"

namespace qv::service {
namespace {

using Breach = std::optional<ClassBreach>;

constexpr std::array<std::string_view, 9> mofKeywords{
    "as", "class", "false", "instance", "null", "of", "qualifier", "ref", "true"};

/// A property of a class and what the class inherits.
struct PropertySubject {
    const PropertyDefinition& own;
    bool hasInheritedKeys;
    const PropertyDefinition* overridden;  ///< null: a new property
};

ClassBreach At(const PropertySubject& subject, std::string what,
               const MofStatus* status = nullptr) {
    return {std::move(what), status, subject.own.name};
}

Breach PropertyName(const PropertySubject& subject) {
    const std::string& name = subject.own.name;
    if (name.size() > longestMofName) {
        return At(subject,
                  "property " + name.substr(0, 20) + "... has a name of more than 255 characters",
                  &mof_status::propertyNameTooWide);
    }
    if (IsReservedName(name)) {
        return At(subject, "property " + name + " begins or ends with an underscore");
    }
    const bool isKeyword = std::ranges::any_of(mofKeywords, [&name](std::string_view keyword) {
        return EqualsIgnoringCase(keyword, name);
    });
    return isKeyword ? Breach(At(subject, "property " + name + " is named by a keyword"))
                     : Breach();
}

Breach Key(const PropertySubject& subject) {
    const Qualifier* const key = FindQualifier(subject.own.qualifiers, "key");
    if (key != nullptr && !subject.own.isKey) {
        return At(subject,
                  "qualifier Key of the property " + subject.own.name + " takes only TRUE");
    }
    if (!subject.own.isKey) {
        return {};
    }
    if (subject.own.isArray) {
        return At(subject, "key " + subject.own.name + " is an array", &mof_status::cannotBeKey);
    }
    switch (subject.own.type) {
        case CimType::real32:
        case CimType::real64:
        case CimType::object:
            return At(subject, "key " + subject.own.name + " is of type " + TypeText(subject.own),
                      &mof_status::cannotBeKey);
        default:
            return {};
    }
}

/// Returns the name of the property in `Override("Class.Property")` or `Override("Property")`.
std::string_view OverriddenName(const Qualifier& override) {
    const auto* const text = std::get_if<std::string>(&override.value);
    if (text == nullptr) {
        return {};
    }
    const std::string_view name = *text;
    const std::size_t point = name.rfind('.');
    return point == std::string_view::npos ? name : name.substr(point + 1);
}

Breach Override(const PropertySubject& subject) {
    const std::string& name = subject.own.name;
    const Qualifier* const override = FindQualifier(subject.own.qualifiers, "override");
    if (override != nullptr && !EqualsIgnoringCase(OverriddenName(*override), name)) {
        return At(subject, "property " + name + " overrides one of another name");
    }
    if (override != nullptr && subject.overridden == nullptr) {
        return At(subject, "property " + name + " overrides nothing");
    }
    if (override == nullptr && subject.overridden != nullptr) {
        return At(subject, "property " + name + " of " + subject.overridden->declaringClass +
                               " is redeclared without Override");
    }
    return {};
}

Breach Type(const PropertySubject& subject) {
    const PropertyDefinition* const overridden = subject.overridden;
    if (overridden != nullptr &&
        (subject.own.type != overridden->type || subject.own.isArray != overridden->isArray)) {
        return At(subject,
                  "property " + subject.own.name + " changes its type from " +
                      TypeText(*overridden) + " to " + TypeText(subject.own),
                  &mof_status::updateTypeMismatch);
    }
    return {};
}

Breach AddedKey(const PropertySubject& subject) {
    const bool wasKey = subject.overridden != nullptr && subject.overridden->isKey;
    if (subject.own.isKey && !wasKey && subject.hasInheritedKeys) {
        return At(subject, "property " + subject.own.name + " adds to inherited keys");
    }
    return {};
}

Breach OverriddenQualifier(const PropertySubject& subject) {
    if (subject.overridden == nullptr) {
        return {};
    }
    for (const Qualifier& inherited : subject.overridden->qualifiers) {
        const Qualifier* const own = FindQualifier(subject.own.qualifiers, inherited.name);
        if (own != nullptr && inherited.toSubclass && !inherited.mayBeOverridden &&
            own->value != inherited.value) {
            return At(subject,
                      "qualifier " + own->name + " of the property " + subject.own.name +
                          " overrides one that is DisableOverride",
                      &mof_status::updateOverrideNotAllowed);
        }
    }
    return {};
}

// In checking order.
constexpr std::array propertyRules{PropertyName, Key,      Override,
                                   Type,         AddedKey, OverriddenQualifier};

}  // namespace

const PropertyDefinition* FindDefinition(const std::vector<PropertyDefinition>& properties,
                                         std::string_view name) {
    const auto found = std::ranges::find_if(properties, [name](const PropertyDefinition& property) {
        return EqualsIgnoringCase(property.name, name);
    });
    return found == properties.end() ? nullptr : &*found;
}

std::string TypeText(const PropertyDefinition& property) {
    return std::string(CimTypeName(property.type)) + (property.isArray ? "[]" : "");
}

std::optional<ClassBreach> FindPropertyBreach(const ClassDefinition& definition,
                                              const DefinedClass* parent) {
    const bool hasInheritedKeys = parent != nullptr && parent->HasKeys();
    for (const PropertyDefinition& own : definition.properties) {
        const PropertySubject subject{own, hasInheritedKeys,
                                      parent == nullptr ? nullptr : parent->FindProperty(own.name)};
        for (const auto rule : propertyRules) {
            if (Breach breach = rule(subject)) {
                return breach;
            }
        }
    }
    return {};
}

}  // namespace qv::service
