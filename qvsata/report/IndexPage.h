#pragma once

#include <cstddef>
#include <vector>

#include "qvsata/report/Host.h"
#include "qvsata/report/Html.h"

namespace qv::report {

/// Of so many hosts a page has all details. Of more it has a line each, which opens.
inline constexpr std::size_t mostDetailed = 10;

/// Writes the number of hosts of each severity, with links to their lines.
void WriteIndexLinks(Html& html, const std::vector<Host>& hosts);

/// Writes a line for each host, the worst first, and then the hosts that have details.
/// @param hosts in the order of IsBefore
void WriteIndex(Html& html, const std::vector<Host>& hosts);

}  // namespace qv::report
