#pragma once

#include <optional>
#include <string_view>

#include "qvsata/cim/ResolvedClass.h"
#include "qvsata/service/Answer.h"

namespace qv::service {

/// Where the instances of some of a namespace's classes come from: recorded rows, a provider, the
/// instances that a MOF file states. Any number of threads may ask at once.
///
/// A source enumerates. What it can do besides is its own matter: where it returns nothing, the
/// namespace enumerates and chooses.
class InstanceSource {
public:
    virtual ~InstanceSource() = default;

    /// Whether the instances of the class come from here.
    virtual bool Serves(const ResolvedClassPtr& type) const = 0;

    /// Returns the instances of exactly this class.
    virtual Answer Enumerate(const ResolvedClassPtr& type) const = 0;

    /// Returns the instance that a path names, which reaches the source as it is written.
    virtual std::optional<Answer> Get(const ResolvedClassPtr& /*type*/,
                                      std::string_view /*path*/) const {
        return std::nullopt;
    }

    /// Returns what a query on the class asks for, or more: the namespace applies the condition and
    /// the selection.
    virtual std::optional<Answer> Query(const ResolvedClassPtr& /*type*/,
                                        std::string_view /*wql*/) const {
        return std::nullopt;
    }

    /// Returns the instance that a path names, whatever the order of its keys, or null.
    virtual std::optional<ObjectPtr> LookUp(const ResolvedClassPtr& /*type*/,
                                            const ObjectPath& /*path*/) const {
        return std::nullopt;
    }

    /// Returns the instances of the class of which a reference may name the path.
    virtual std::optional<Answer> Referencing(const ResolvedClassPtr& /*type*/,
                                              const ObjectPath& /*path*/) const {
        return std::nullopt;
    }
};

}  // namespace qv::service
