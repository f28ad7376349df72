#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/cim/ClassDefinition.h"

namespace qv::service {

template <typename Element>
using Refs = std::vector<std::reference_wrapper<const Element>>;

using PropertyRefs = Refs<PropertyDefinition>;

/// A class below its ancestors. What it inherits is looked up in them: a copy in each class would
/// make many subclasses of a large class expensive. Immutable. Names are compared ignoring case.
class DefinedClass {
public:
    /// @param parent null for a root class
    DefinedClass(ClassDefinition definition, std::shared_ptr<const DefinedClass> parent);
    DefinedClass(const DefinedClass&) = delete;
    DefinedClass& operator=(const DefinedClass&) = delete;

    const ClassDefinition& Definition() const { return definition_; }
    const DefinedClass* Parent() const { return parent_.get(); }
    const DefinedClass& Topmost() const;
    std::size_t AncestorCount() const { return ancestorCount_; }

    /// Returns how many properties the class has, with inherited ones.
    std::size_t PropertyCount() const { return propertyCount_; }

    bool HasKeys() const { return hasKeys_; }

    /// Returns how many qualifiers the class and its ancestors hand on to subclasses.
    std::size_t HandedOnCount() const { return handedOnCount_; }

    /// Returns all properties, those of the topmost ancestor first. An override takes the position
    /// of the overridden property. It supplies type, reference class and qualifiers, stays a key if
    /// the property was one, and inherits the default value if it states none.
    PropertyRefs Properties() const;

    /// Returns the property of that name; null if there is none.
    const PropertyDefinition* FindProperty(std::string_view name) const;

    /// Returns the qualifier of that name that the class or its nearest ancestor hands on to
    /// subclasses; null if there is none.
    const Qualifier* FindHandedOn(std::string_view name) const;

    /// Returns the class's own qualifier of that name, or the one that its ancestors hand on; null
    /// if there is none.
    const Qualifier* FindClassQualifier(std::string_view name) const;

    /// Returns the names of the ancestors, nearest first.
    std::vector<std::string> Derivation() const;

    /// Returns whether the class is `className` or derives from it.
    bool IsA(std::string_view className) const;

private:
    struct Member {
        std::size_t hash;   ///< of the name, ignoring case
        std::size_t place;  ///< among all properties of the class
        const PropertyDefinition* property;
    };

    const Member* Find(std::string_view name) const;

    ClassDefinition definition_;
    std::shared_ptr<const DefinedClass> parent_;
    std::size_t ancestorCount_;
    std::size_t propertyCount_;
    std::size_t handedOnCount_;
    bool hasKeys_;
    std::vector<const Qualifier*> handedOn_;  ///< the class's own that subclasses inherit
    std::vector<std::unique_ptr<const PropertyDefinition>> overrides_;  ///< with what they inherit
    std::vector<Member> members_;                                       ///< the class's own
};

using DefinedClassPtr = std::shared_ptr<const DefinedClass>;

}  // namespace qv::service
