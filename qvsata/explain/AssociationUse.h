#pragma once

#include <cstddef>
#include <set>
#include <string_view>
#include <tuple>
#include <vector>

#include "qvsata/explain/Verdict.h"
#include "qvsata/view/PublishedObject.h"

namespace qv::explain {

/// Which published instances take part in which associations, by the matching rules of the
/// provider's table of associations.
class AssociationUse {
public:
    /// `published` must outlive the object.
    explicit AssociationUse(const view::PublishedHost& published);

    /// Returns the association classes that have an end for the verdict's instances and no instance
    /// with one of them, in the order of the table. Associations with a class whose request failed
    /// are left out.
    std::vector<std::string_view> EmptyFor(const Verdict& verdict) const;

private:
    /// An association class, and an instance by its class and place.
    using Part = std::tuple<std::string_view, std::string_view, std::size_t>;

    const view::PublishedHost& published_;
    std::set<Part> parts_;
};

}  // namespace qv::explain
