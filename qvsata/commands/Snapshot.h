#pragma once

#include <string>

#include "qvsata/service/ProviderHost.h"
#include "qvsata/view/diff/HostDiff.h"

namespace qv::tool {

/// Reads what is compared of a machine: the disks of the operating system, all published instances
/// and the disks that raise events. What rests on a source that could not be read is noted. Throws
/// CommandError if the provider fails.
view::Snapshot ReadSnapshot(const service::ProviderHost& host, std::string name);

}  // namespace qv::tool
