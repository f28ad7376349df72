#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "qvsata/cim/ClassRepository.h"
#include "qvsata/cim/ResolvedClass.h"

namespace qv::service {

/// Classes that are known by name only, resolved each time they are asked for: there may be many,
/// and a namespace is opened for each query.
class NamedClasses {
public:
    virtual ~NamedClasses() = default;

    /// Returns the class of that name, ignoring case; null if there is none.
    virtual ResolvedClassPtr Find(std::string_view className) const = 0;
    virtual std::vector<ResolvedClassPtr> All() const = 0;
    virtual bool IsEmpty() const = 0;
};

/// The resolved classes of a namespace. Names are compared ignoring case.
class NamespaceClasses {
public:
    /// Resolves the classes of a repository for a namespace of a server. The management service's
    /// own classes are found, but not listed.
    NamespaceClasses(const ClassRepository& repository, std::string_view server,
                     std::string_view nameSpace);

    /// Takes the classes of the same namespace on another server.
    NamespaceClasses(const NamespaceClasses& other, std::string_view server);

    explicit NamespaceClasses(std::shared_ptr<const NamedClasses> named)
        : named_(std::move(named)) {}

    NamespaceClasses(NamespaceClasses&&) = default;  // a copy's entries would name the original's

    /// Returns the classes in the order of their definition.
    std::vector<ResolvedClassPtr> Listed() const { return named_ ? named_->All() : listed_; }

    /// Returns whether listed classes are known by name only, as those of a recorded host are: an
    /// object may then be of a class that was not recorded, with any properties.
    bool HasUndefined() const { return named_ && !named_->IsEmpty(); }

    /// Returns the class of that name; null if there is none.
    ResolvedClassPtr Find(std::string_view className) const;

    /// Returns the listed classes that are `className` or derive from it.
    std::vector<ResolvedClassPtr> WithSubclasses(std::string_view className) const;

    /// Returns whether a class is `ancestor` or derives from it. For names without a class, returns
    /// whether they are equal.
    bool IsA(std::string_view className, std::string_view ancestor) const;

private:
    struct Entry {
        ResolvedClassPtr type;
        std::optional<std::size_t> place;      ///< among the listed classes; nothing if not listed
        std::vector<const Entry*> subclasses;  ///< those directly below
    };

    void AddToSuperclasses();

    std::shared_ptr<const NamedClasses> named_;  ///< null: the next two are the classes
    std::vector<ResolvedClassPtr> listed_;
    std::unordered_map<std::string, Entry> byName_;  ///< by folded name
};

}  // namespace qv::service
