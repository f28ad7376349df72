#pragma once

#include <map>
#include <string>
#include <string_view>

#include "qvsata/view/PublishedObject.h"

namespace qv::view {

/// Maps the identity of an object to that of another.
using Identities = std::map<std::string, std::string>;

/// Maps each object in the role `from` of an association class to its partner in the role `to`; of
/// several partners to the one with the longest identity. An empty reference joins nothing.
Identities Partners(const PublishedHost& host, std::string_view association, std::string_view from,
                    std::string_view to);

/// Returns the map from values to keys.
Identities Inverted(const Identities& partners);

/// Returns the partner of an object; empty if it has none.
std::string Lookup(const Identities& partners, const std::string& identity);

}  // namespace qv::view
