#pragma once

#include <vector>

#include "qvsata/view/Topology.h"
#include "qvsata/view/text/CellRow.h"

namespace qv::view {

/// A line of the topology as people see it, and the lines below it.
struct TopologyNode {
    CellRow title;   ///< name, status, remarks; printable
    CellRow detail;  ///< of a controller: its software
    std::vector<TopologyNode> children;
    const Disk* disk = nullptr;  ///< the disk that the line shows; it has no title of its own
};

/// Returns what hangs below the computer: controllers, their channels and disks; what could not be
/// read is said to be so. The topology must outlive the nodes.
std::vector<TopologyNode> NodesOf(const Topology& topology);

}  // namespace qv::view
