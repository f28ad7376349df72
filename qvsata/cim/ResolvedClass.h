#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/cim/ClassRepository.h"

namespace qv::service {

/// What a class is on every server.
struct ClassContents {
    std::vector<std::string> derivation;         ///< ancestors, nearest first
    std::vector<Qualifier> qualifiers;           ///< its own
    std::vector<Qualifier> inheritedQualifiers;  ///< those that its ancestors pass to subclasses
    std::vector<PropertyDefinition> properties;
};

/// A class with everything that it inherits and the namespace that publishes it. Immutable. Copies
/// share the contents.
struct ResolvedClass {
    ResolvedClass() = default;
    explicit ResolvedClass(std::shared_ptr<const ClassContents> contents);

    std::string name;
    std::string server;
    std::string nameSpace;
    std::shared_ptr<const ClassContents> shared;  ///< owns the next three; null without any
    std::span<const std::string> derivation;
    std::span<const Qualifier> qualifiers;
    std::span<const PropertyDefinition> properties;
    bool isDynamic = false;  ///< a provider supplies its instances, and it is not abstract
    /// Known by name only, as the classes of a recorded host are: its instances show which
    /// properties and references they have.
    bool isUndefined = false;

    /// Returns the property of that name, ignoring case; null if there is none.
    const PropertyDefinition* Find(std::string_view property) const;

    /// Returns whether the class has a qualifier of that name, its own or an inherited one, with
    /// any value.
    bool HasQualifier(std::string_view qualifier) const;

    /// Returns the superclass; empty for a root class.
    std::string Superclass() const { return derivation.empty() ? "" : derivation.front(); }

    /// Returns the topmost class of the derivation.
    std::string Dynasty() const { return derivation.empty() ? name : derivation.back(); }

    /// Returns whether the class is `className` or derives from it.
    bool IsA(std::string_view className) const;
};

using ResolvedClassPtr = std::shared_ptr<const ResolvedClass>;

/// Returns the same class on another server.
ResolvedClassPtr OnServer(const ResolvedClass& type, std::string_view server);

/// Resolves a class of a repository; returns null if the repository has no class of that name.
ResolvedClassPtr Resolve(const ClassRepository& repository, std::string_view className,
                         std::string_view server, std::string_view nameSpace);

}  // namespace qv::service
