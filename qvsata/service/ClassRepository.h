#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/service/ClassDefinition.h"

namespace qv::service {

/// The classes and instances of one namespace. Names are taken without regard to case everywhere.
/// The management service's own classes that a provider meets (`__Event`, `__ExtrinsicEvent`,
/// `__ExtendedStatus`, `__Win32Provider`, `__Namespace`, the provider registrations) are found in
/// every repository, but not listed by Classes().
///
/// A pointer or span that a query returns holds until the repository is changed. Queries may run
/// concurrently; changes need the repository for themselves.
class ClassRepository {
public:
    ClassRepository();

    /// Adds a class. Whether it agrees with its superclass is the MOF reader's to check.
    /// @throws std::invalid_argument when a class of that name is there or its superclass is not.
    void Add(ClassDefinition definition);

    /// Puts a class in the place of the one of that name, which is there and not the management
    /// service's own. What uses the class is not looked at.
    void Replace(ClassDefinition definition);

    /// Adds an instance, in place of one of the same class and keys.
    void Add(InstanceDefinition instance);

    /// Removes a class with its subclasses and the instances of all of them; false when it is not
    /// there. The management service's own classes cannot be removed.
    bool RemoveClass(std::string_view className);

    /// Whether there is an instance with that relative path.
    bool HasInstance(std::string_view relativePath) const;

    /// Removes the instance with that relative path; false when it is not there.
    bool RemoveInstance(std::string_view relativePath);

    /// The class of that name; null when there is none.
    const ClassDefinition* Find(std::string_view className) const;

    /// The classes in the order of their definition.
    std::span<const ClassDefinition> Classes() const;

    /// The instances in the order of their definition.
    const std::vector<InstanceDefinition>& Instances() const { return instances_; }

    /// All properties of a class, those of its topmost ancestor first. An override stands where the
    /// overridden property stood, with the type, reference class and qualifiers of the override,
    /// and stays a key when the property was one; a default value that it does not state is
    /// inherited. Empty for an unknown class.
    std::vector<PropertyDefinition> Properties(std::string_view className) const;

    /// The key properties among Properties(className).
    std::vector<PropertyDefinition> Keys(std::string_view className) const;

    /// The names of a class's ancestors, nearest first.
    std::vector<std::string> Derivation(std::string_view className) const;

    /// Whether a class is, or has as an ancestor, the class `ancestor`; false for an unknown class.
    bool IsA(std::string_view className, std::string_view ancestor) const;

    /// A qualifier of the class itself, or the one that it inherits from its nearest ancestor that
    /// passes one of that name to subclasses; null when there is none.
    const Qualifier* ClassQualifier(std::string_view className, std::string_view name) const;

    /// `Class.Key="value",Key2=5` with the keys in alphabetical order; empty when a key of the
    /// class has no value in the instance.
    std::string RelativePath(const InstanceDefinition& instance) const;

private:
    std::vector<ClassDefinition> classes_;                   ///< the management service's own first
    std::map<std::string, std::size_t, std::less<>> index_;  ///< by folded name
    std::vector<InstanceDefinition> instances_;
};

/// The repositories of a machine, one for each namespace.
class Namespaces {
public:
    /// The repository of a namespace, made on first use. `root\QVQ`, `\\.\root\QVQ` and
    /// `//server/ROOT/qvq` are the same namespace.
    ClassRepository& Of(std::string_view namespacePath);

    /// The repository of a namespace; null when nothing was ever put there.
    const ClassRepository* Find(std::string_view namespacePath) const;

private:
    std::map<std::string, ClassRepository, std::less<>> repositories_;
};

}  // namespace qv::service
