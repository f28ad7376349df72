#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/report/Host.h"
#include "qvsata/view/Health.h"

namespace qv::report {

/// How a host is.
struct Standing {
    /// The worst of what was seen; not fine if not all was seen on which the health rests.
    view::Severity severity = view::Severity::fine;
    std::string verdict;  ///< "failure predicted for 1 disk"
    std::string summary;  ///< "3 disks: 2 OK, 1 Pred Fail", and predictions that belong to no disk
};

Standing StandingOf(const Host& host);

/// Returns the places of the worst disks, at most `most`, the worst first; of equal ones the first.
std::vector<std::size_t> WorstDisks(const std::vector<view::OsDisk>& disks, std::size_t most);

/// Returns whether one host comes before the other: the worse first, of equal ones that of which
/// less could be read, then by name.
bool IsBefore(const Host& one, const Host& other);

/// Returns the style sheet's class of a severity, which has a colour and a sign.
std::string_view ClassOf(view::Severity severity);

}  // namespace qv::report
