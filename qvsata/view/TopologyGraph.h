#pragma once

#include <string>

#include "qvsata/view/Topology.h"

namespace qv::view {

/// Returns the disks and what they are attached to, as a graph in Graphviz's language, coloured by
/// health. A controller or channel without disks is left out.
std::string TopologyAsGraph(const Topology& topology);

}  // namespace qv::view
