#include "qvsata/mof/MofClassUpdate.h"

#include <algorithm>

#include "source/Text.h"

namespace qv::service {
namespace {

/// Qualifiers whose change counts as a change of the class; the others are descriptive.
constexpr const char* weighty[] = {"abstract", "dynamic", "singleton", "provider", "association"};

bool AreAlike(const PropertyDefinition& left, const PropertyDefinition& right) {
    return EqualsIgnoringCase(left.name, right.name) && left.type == right.type &&
           left.isArray == right.isArray && left.isKey == right.isKey &&
           EqualsIgnoringCase(left.referenceClass, right.referenceClass) &&
           left.defaultValue == right.defaultValue;
}

bool AreAlike(const ClassDefinition& left, const ClassDefinition& right) {
    return EqualsIgnoringCase(left.superclass, right.superclass) &&
           std::ranges::equal(
               left.properties, right.properties,
               [](const auto& one, const auto& other) { return AreAlike(one, other); }) &&
           std::ranges::all_of(weighty, [&](const char* name) {
               const Qualifier* const one = FindQualifier(left.qualifiers, name);
               const Qualifier* const other = FindQualifier(right.qualifiers, name);
               return (one == nullptr) == (other == nullptr) &&
                      (one == nullptr || one->value == other->value);
           });
}

}  // namespace

std::optional<ClassBreach> FindUpdateBreach(const ClassDefinition& changed,
                                            const ClassRepository& classes,
                                            const ClassFlags& flags) {
    if (AreAlike(*classes.Find(changed.name), changed)) {
        return {};
    }
    const std::string change = "class " + changed.name + " is changed and ";
    if (classes.HasInstancesOf(changed.name)) {
        return ClassBreach{change + "has instances", &mof_status::classHasInstances};
    }
    const std::vector<DefinedClassPtr> below = classes.ClassesBelow(changed.name);
    if (below.empty()) {
        return {};
    }
    if (!flags.withSubclasses) {
        return ClassBreach{change + "has the subclass " + below.front()->Definition().name,
                           &mof_status::classHasChildren};
    }
    ClassRepository after = classes;
    after.Replace(changed);
    for (const DefinedClassPtr& other : below) {
        if (const auto breach = FindBreach(other->Definition(), after)) {
            return ClassBreach{change + "contradicts its subclass: " + breach->what,
                               &mof_status::classHasChildren};
        }
    }
    return {};
}

}  // namespace qv::service
