#pragma once

#include <string>
#include <vector>

#include "qvsata/report/Host.h"

namespace qv::report {

/// Where a page comes from.
struct Origin {
    std::string program;  ///< "qvsata 1.0.0"
    std::string time;     ///< when it was made: "2026-11-22 10:03:12 UTC"
};

/// Returns a page about hosts, complete in one text: HTML that is well-formed XML, without scripts,
/// and that loads nothing. One host is described in full; of several there is an index first.
std::string PageOf(std::vector<Host> hosts, const Origin& origin);

/// Returns what the page says first, as a line without its end.
std::string HeadlineOf(const std::vector<Host>& hosts);

}  // namespace qv::report
