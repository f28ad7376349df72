#pragma once

#include <optional>
#include <string_view>

#include "qvsata/cim/ResolvedClass.h"
#include "qvsata/service/Answer.h"

namespace qv::service {

/// A source of the instances of some classes of a namespace: recorded rows, a provider, or the
/// instances in MOF files. Any number of threads may call it at once.
///
/// Every source enumerates. The other operations are optional: if one returns nothing, the
/// namespace enumerates and filters.
class InstanceSource {
public:
    virtual ~InstanceSource() = default;

    /// Returns whether the instances of the class come from this source.
    virtual bool Serves(const ResolvedClassPtr& type) const = 0;

    /// Returns the instances of exactly this class.
    virtual Answer Enumerate(const ResolvedClassPtr& type) const = 0;

    /// Returns the instance that a path names. The source receives the path as the client wrote it.
    virtual std::optional<Answer> Get(const ResolvedClassPtr& /*type*/,
                                      std::string_view /*path*/) const {
        return std::nullopt;
    }

    /// Returns the instances that a query on the class selects, or more: the namespace applies the
    /// condition and the selection.
    virtual std::optional<Answer> Query(const ResolvedClassPtr& /*type*/,
                                        std::string_view /*wql*/) const {
        return std::nullopt;
    }

    /// Returns the instance that a path names, with its keys in any order; a null pointer if there
    /// is none.
    virtual std::optional<ObjectPtr> LookUp(const ResolvedClassPtr& /*type*/,
                                            const ObjectPath& /*path*/) const {
        return std::nullopt;
    }

    /// Returns the first instance of the class whose property is exactly a text, see
    /// Services::FindText.
    virtual std::optional<FoundObject> FindText(const ResolvedClassPtr& /*type*/,
                                                std::string_view /*property*/,
                                                std::string_view /*text*/) const {
        return std::nullopt;
    }

    /// Returns the instances of the class that may have a reference to the path.
    virtual std::optional<Answer> Referencing(const ResolvedClassPtr& /*type*/,
                                              const ObjectPath& /*path*/) const {
        return std::nullopt;
    }
};

}  // namespace qv::service
