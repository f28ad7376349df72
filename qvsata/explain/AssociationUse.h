#pragma once

#include <cstddef>
#include <map>
#include <string_view>
#include <vector>

#include "qvsata/explain/Verdict.h"
#include "qvsata/view/PublishedObject.h"

namespace qv::explain {

/// Which published instances take part in which associations, by the matching rules of the
/// provider's table of associations.
class AssociationUse {
public:
    /// Throws TooManyJoins if an association joins more than `mostPairs`.
    AssociationUse(const view::PublishedHost& published, std::size_t mostPairs);

    /// Returns the association classes that have an end for the verdict's instances and no instance
    /// with one of them, in the order of the table. Associations with a class whose request failed
    /// are left out.
    std::vector<std::string_view> EmptyFor(const Verdict& verdict) const;

private:
    /// An association and, for each class at its ends, which of its instances take part.
    struct Use {
        std::string_view association;
        std::map<std::string_view, std::vector<bool>> takesPart;
    };

    std::vector<Use> uses_;
};

}  // namespace qv::explain
