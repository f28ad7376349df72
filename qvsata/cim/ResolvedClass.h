#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/cim/ClassRepository.h"

namespace qv::service {

/// A class and the namespace that publishes it. Immutable. Copies share the definition.
struct ResolvedClass {
    std::string name;
    std::string server;
    std::string nameSpace;
    DefinedClassPtr definition;  ///< null if the class is known by name only
    bool isDynamic = false;      ///< a provider supplies its instances, and it is not abstract
    /// Known by name only, as the classes of a recorded host are: its instances show which
    /// properties and references they have.
    bool isUndefined = false;

    /// Returns the class's own qualifiers.
    std::span<const Qualifier> Qualifiers() const;

    /// Returns all properties, see DefinedClass::Properties.
    PropertyRefs Properties() const;
    std::size_t PropertyCount() const;

    /// Returns the property of that name, ignoring case; null if there is none.
    const PropertyDefinition* Find(std::string_view property) const;

    /// Returns whether the class has a qualifier of that name, its own or an inherited one, with
    /// any value.
    bool HasQualifier(std::string_view qualifier) const;

    /// Returns the superclass; empty for a root class.
    std::string Superclass() const;

    /// Returns the topmost class of the derivation.
    std::string Dynasty() const;

    /// Returns the names of the ancestors, nearest first.
    std::vector<std::string> Derivation() const;

    /// Returns whether the class is `className` or derives from it.
    bool IsA(std::string_view className) const;
};

using ResolvedClassPtr = std::shared_ptr<const ResolvedClass>;

/// Returns the same class on another server.
ResolvedClassPtr OnServer(const ResolvedClass& type, std::string_view server);

/// Returns a class as a namespace of a server publishes it.
ResolvedClassPtr Resolve(DefinedClassPtr definition, std::string_view server,
                         std::string_view nameSpace);

}  // namespace qv::service
