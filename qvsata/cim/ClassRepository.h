#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "qvsata/cim/classes/DefinedClass.h"

namespace qv::service {

/// The classes and instances of one namespace. Names are compared ignoring case. Find() also finds
/// the management service's own classes that a provider meets (`__Event`, `__ExtrinsicEvent`,
/// `__ExtendedStatus`, `__Win32Provider`, `__Namespace`, the provider registrations, the filters
/// and consumers of events and their bindings) in every repository; Classes() does not list them.
///
/// A pointer or reference that a query returns stays valid until the repository changes. Queries
/// may run concurrently; a change needs exclusive access.
class ClassRepository {
public:
    /// Adds a class. The MOF reader checks that it agrees with its superclass.
    /// @throws std::invalid_argument if a class of that name exists or its superclass does not.
    void Add(ClassDefinition definition);

    /// Replaces the class of that name, which must exist and must not be the management service's
    /// own. Does not check the classes and instances that use it.
    void Replace(ClassDefinition definition);

    /// Adds an instance, or replaces the one of the same class and keys.
    void Add(InstanceDefinition instance);

    /// Removes a class, its subclasses and the instances of all of them. Returns false if the class
    /// does not exist or is the management service's own.
    bool RemoveClass(std::string_view className);

    /// Returns whether an instance with that relative path exists.
    bool HasInstance(std::string_view relativePath) const;

    /// Removes the instance with that relative path; returns false if it does not exist.
    bool RemoveInstance(std::string_view relativePath);

    /// Returns the class of that name; null if there is none.
    DefinedClassPtr FindDefined(std::string_view className) const;

    /// Returns the class of that name as it is declared; null if there is none.
    const ClassDefinition* Find(std::string_view className) const;

    /// Returns the classes in the order of their definition.
    Refs<ClassDefinition> Classes() const;

    /// Returns the classes that derive from a class, an ancestor before its subclasses.
    std::vector<DefinedClassPtr> ClassesBelow(std::string_view className) const;

    /// Returns whether a class or one that derives from it has instances.
    bool HasInstancesOf(std::string_view className) const;

    /// Returns the instances in the order of their definition.
    Refs<InstanceDefinition> Instances() const;

    /// Returns all properties of a class, as DefinedClass::Properties does; empty for an unknown
    /// class.
    PropertyRefs Properties(std::string_view className) const;

    /// Returns the key properties among Properties(className).
    PropertyRefs Keys(std::string_view className) const;

    /// Returns the names of a class's ancestors, nearest first.
    std::vector<std::string> Derivation(std::string_view className) const;

    /// Returns whether a class is `ancestor` or derives from it; false for an unknown class.
    bool IsA(std::string_view className, std::string_view ancestor) const;

    /// Returns the class's own qualifier of that name, or the one of its nearest ancestor that
    /// passes it to subclasses; null if there is none.
    const Qualifier* ClassQualifier(std::string_view className, std::string_view name) const;

    /// Returns `Class.Key="value",Key2=5` with the keys in alphabetical order; empty if a key of
    /// the class has no value in the instance.
    std::string RelativePath(const InstanceDefinition& instance) const;

private:
    using Numbers = std::set<std::size_t>;

    // Classes and instances have numbers in the order of their arrival. Those of the management
    // service are not among them. Names and paths are folded.
    std::map<std::size_t, DefinedClassPtr> classes_;
    std::map<std::size_t, InstanceDefinition> instances_;
    std::unordered_map<std::string, std::size_t> places_;    ///< of the classes, by name
    std::unordered_map<std::string, Numbers> below_;         ///< classes, by direct superclass
    std::unordered_map<std::string, Numbers> ofClass_;       ///< instances, by class
    std::set<std::pair<std::string, std::size_t>> numbers_;  ///< of instances, by path
    std::size_t nextNumber_ = 0;
};

/// The repositories of a machine, one per namespace.
class Namespaces {
public:
    /// Returns the repository of a namespace; creates it on first use. `root\QVQ`, `\\.\root\QVQ`
    /// and `//server/ROOT/qvq` are the same namespace.
    ClassRepository& Of(std::string_view namespacePath);

    /// Returns the repository of a namespace; null if Of() was never called for it.
    const ClassRepository* Find(std::string_view namespacePath) const;

private:
    std::map<std::string, ClassRepository, std::less<>> repositories_;
};

}  // namespace qv::service
