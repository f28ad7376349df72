#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "qvsata/service/ProviderHost.h"
#include "qvsata/session/SourceReport.h"

namespace qv::tool {

/// A source class with all queries of it.
struct SourceUse {
    SourceClass source;
    std::size_t queries = 0;
    std::size_t rows = 0;  ///< of all different queries
    std::chrono::microseconds time{};
    service::SourceQuery worst;  ///< the first one that was not read, otherwise the first one

    /// Returns whether the class was queried, and every query of it read.
    bool IsRead() const;
};

// What people read of a source: a dash stands for what is not known.
std::string RowsText(const SourceUse& use);
/// Returns the time in milliseconds, without the unit.
std::string MillisecondsText(const SourceUse& use);
/// Returns "OK", "not asked", or how it failed and what that means.
std::string StatusText(const SourceUse& use);

/// Has the provider publish everything, and reads the class that only its monitor reads, so that
/// each source is in the host's journal. Throws CommandError if the provider fails to publish a
/// class; all others have been published then.
void QuerySources(const service::ProviderHost& host);

/// Returns each class that the provider reads, those of the disks first, with its queries so far.
std::vector<SourceUse> SourceUsesOf(const service::ProviderHost& host);

/// Does both. Throws as QuerySources.
std::vector<SourceUse> ReadSourceUses(const service::ProviderHost& host);

}  // namespace qv::tool
