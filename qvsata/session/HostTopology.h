#pragma once

#include "qvsata/service/ProviderHost.h"
#include "qvsata/view/Topology.h"

namespace qv::tool {

/// Builds the tree of a host, and notes in it what could not be read.
/// @param published the instances of view::topologyClasses, or of those that the caller looks at
/// @param disks what ReadOsDisks returned for the host
view::Topology ReadTopology(const service::ProviderHost& host, const view::PublishedHost& published,
                            const view::OsDisks& disks);

}  // namespace qv::tool
