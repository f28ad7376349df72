#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/cim/ClassRepository.h"

namespace qv::service {

/// A class with everything that it inherits, and where it is published. Immutable.
struct ResolvedClass {
    std::string name;
    std::string server;
    std::string nameSpace;
    std::vector<std::string> derivation;  ///< its ancestors, nearest first
    std::vector<Qualifier> qualifiers;    ///< its own
    std::vector<PropertyDefinition> properties;
    bool isDynamic = false;  ///< a provider makes its instances; it is not abstract
    /// Known by name only, as the classes of a recorded host are: its instances tell which
    /// properties and references they have.
    bool isUndefined = false;

    /// The property of that name, taken without regard to case; null when there is none.
    const PropertyDefinition* Find(std::string_view property) const;

    /// The superclass; empty for a root class.
    std::string Superclass() const { return derivation.empty() ? "" : derivation.front(); }

    /// The topmost class of the derivation.
    std::string Dynasty() const { return derivation.empty() ? name : derivation.back(); }

    /// Whether the class is, or derives from, a class.
    bool IsA(std::string_view className) const;
};

using ResolvedClassPtr = std::shared_ptr<const ResolvedClass>;

/// Resolves a class of a repository; null when the repository has none of that name.
ResolvedClassPtr Resolve(const ClassRepository& repository, std::string_view className,
                         std::string_view server, std::string_view nameSpace);

}  // namespace qv::service
