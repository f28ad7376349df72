#pragma once

#include <map>
#include <string>
#include <string_view>

#include "qvsata/view/PublishedObject.h"

namespace qv::view {

/// The identity of an object by that of another.
using Identities = std::map<std::string, std::string>;

/// For each object that the role `from` names in an association class, the one that the role `to`
/// names with it; the longest of several.
Identities Partners(const PublishedHost& host, std::string_view association, std::string_view from,
                    std::string_view to);

/// The keys by their values.
Identities Inverted(const Identities& partners);

/// The partner of an object; empty when it has none.
std::string Lookup(const Identities& partners, const std::string& identity);

}  // namespace qv::view
