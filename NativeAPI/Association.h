#pragma once

#include <string_view>
#include <vector>

#include "NativeAPI/KeyMatching.h"
#include "source/InstanceRecord.h"

namespace qv {

/// One end of an association.
struct AssociationEnd {
    std::string_view role;       ///< the property that refers to the endpoint
    std::string_view className;  ///< the endpoint's class
    std::string_view key;        ///< the endpoint's property that is compared; empty if missing
};

/// A condition on one more property of each endpoint. The default holds for all.
struct FurtherCondition {
    std::string_view firstKey;
    std::string_view secondKey;
    MatchRule rule = MatchRule::always;
};

/// A property with the same value in every instance of an association.
struct FixedProperty {
    std::string_view name;  ///< empty: none
    std::string_view value;
    PropertyType type = PropertyType::string;
};

/// An association class and the rules for its instances. A three-way association has a third end,
/// which is paired with the second.
struct Association {
    std::string_view name;
    AssociationEnd first;
    AssociationEnd second;
    MatchRule rule;  ///< between the keys of the first and the second end
    FixedProperty added{};
    AssociationEnd third{};                   ///< without a role: two ends only
    MatchRule thirdRule = MatchRule::always;  ///< between the keys of the second and the third end

    constexpr bool HasThreeEnds() const { return !third.role.empty(); }

    /// Returns the two or three ends, in order.
    std::vector<AssociationEnd> Ends() const {
        std::vector<AssociationEnd> ends{first, second};
        if (HasThreeEnds()) {
            ends.push_back(third);
        }
        return ends;
    }
};

}  // namespace qv
