#pragma once

#include <string>
#include <utility>
#include <vector>

#include "qvsata/report/Host.h"
#include "qvsata/report/Html.h"
#include "qvsata/report/Place.h"

namespace qv::report {

/// Writes everything about a host that has details: health, events, topology, disks, what is left
/// out, sources, keys.
void WriteHost(Html& html, const Place& place, const Host& host);

/// Returns the identifiers and headings of the sections that WriteHost writes for a host.
std::vector<std::pair<std::string_view, std::string_view>> SectionsOf(const Host& host);

}  // namespace qv::report
