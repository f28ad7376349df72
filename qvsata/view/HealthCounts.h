#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "qvsata/view/Health.h"
#include "qvsata/view/text/StyledText.h"

namespace qv::view {

using HealthCounts = std::vector<std::pair<Health, std::size_t>>;

/// Returns each health and how many disks have it, the best first.
/// @param getHealth returns the health of a disk
template <typename Disks, typename GetHealth>
HealthCounts Counted(const Disks& disks, GetHealth getHealth) {
    HealthCounts counts;
    for (const auto& disk : disks) {
        const Health health = getHealth(disk);
        const auto known = std::ranges::find_if(
            counts, [&health](const auto& one) { return one.first.word == health.word; });
        if (known == counts.end()) {
            counts.emplace_back(health, 1);
        } else {
            ++known->second;
        }
    }
    std::ranges::stable_sort(counts, {}, [](const auto& count) { return SeverityOf(count.first); });
    return counts;
}

/// Returns "3 disks: 2 OK, 1 Pred Fail" in the style of the worst.
/// @param what the text before the colon
Span CountsSpan(const std::string& what, const HealthCounts& counts);

}  // namespace qv::view
