#pragma once

#include "qvsata/view/StyledText.h"
#include "qvsata/view/Topology.h"

namespace qv::view {

/// Returns a topology as a tree of lines: controllers, their channels, and the disks below them in
/// aligned columns (status, model, size, partition flags, serial number). The last line counts the
/// disks by status. A status that is not OK is prefixed with "!", so that it stands out without
/// colours.
StyledText TopologyAsText(const Topology& topology);

}  // namespace qv::view
