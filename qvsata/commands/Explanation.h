#pragma once

#include <cstddef>
#include <vector>

#include "qvsata/explain/ExplanationText.h"
#include "qvsata/explain/SourceRows.h"
#include "qvsata/service/ProviderHost.h"
#include "qvsata/view/OsDisk.h"

namespace qv::tool {

/// The rows of a machine, and what becomes of them.
struct ExplainedHost {
    explain::SourceRows rows;
    explain::Explanation explanation;
};

/// Reads the rows of a machine and judges each. Throws CommandError if the provider fails, or if
/// rows name each other more than `mostJoins` times.
/// @param disks what ReadOsDisks returned for the host
ExplainedHost ReadExplanation(const service::ProviderHost& host,
                              const std::vector<view::OsDisk>& disks, std::size_t mostJoins);

/// Returns the place of a disk's first row in its class; the number of rows if it has none.
std::size_t PlaceOf(const view::OsDisk& disk, const explain::SourceRows& rows);

}  // namespace qv::tool
