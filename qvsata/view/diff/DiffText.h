#pragma once

#include "qvsata/view/diff/HostDiff.h"
#include "qvsata/view/text/StyledText.h"

namespace qv::view {

/// Returns the differences for people: disks first, each with what belongs to it, then the other
/// instances, then the events. What appeared or is gone with a disk is counted, not listed.
StyledText DiffAsText(const HostDiff& diff);

}  // namespace qv::view
