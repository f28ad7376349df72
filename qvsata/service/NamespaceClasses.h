#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "qvsata/cim/ClassRepository.h"
#include "qvsata/cim/ResolvedClass.h"

namespace qv::service {

/// The classes of a namespace, resolved. Names are taken without regard to case.
class NamespaceClasses {
public:
    /// The classes of a repository, published in a namespace of a server. The management service's
    /// own are found, but not listed.
    NamespaceClasses(const ClassRepository& repository, std::string_view server,
                     std::string_view nameSpace);

    /// These classes, which have no superclasses.
    explicit NamespaceClasses(std::vector<ResolvedClassPtr> classes);

    /// Returns the classes in the order of their definition.
    const std::vector<ResolvedClassPtr>& Listed() const { return listed_; }

    /// Returns the class of that name; null when there is none.
    ResolvedClassPtr Find(std::string_view className) const;

    /// Returns the listed classes that are, or derive from, a class.
    const std::vector<ResolvedClassPtr>& WithSubclasses(std::string_view className) const;

    /// Whether a class is, or derives from, another; for names without a class, whether they are
    /// the same.
    bool IsA(std::string_view className, std::string_view ancestor) const;

private:
    struct Entry {
        ResolvedClassPtr type;
        std::vector<ResolvedClassPtr> withSubclasses;
    };

    std::vector<ResolvedClassPtr> listed_;
    std::unordered_map<std::string, Entry> byName_;  ///< by folded name
};

}  // namespace qv::service
