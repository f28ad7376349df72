#pragma once

#include "qvsata/view/StyledText.h"
#include "qvsata/view/Topology.h"

namespace qv::view {

/// A topology as a tree of lines for a reader: controllers, their channels, the disks below them in
/// aligned columns (status, model, size, flags of the partition, serial number), and at the end how
/// many disks have which status. What is not OK has a "!" before its status, so that it stands out
/// without colours too.
StyledText TopologyAsText(const Topology& topology);

}  // namespace qv::view
