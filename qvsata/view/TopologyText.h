#pragma once

#include <cstddef>
#include <optional>

#include "qvsata/view/Topology.h"
#include "qvsata/view/text/StyledText.h"

namespace qv::view {

/// Returns the tree, and a last line that counts the disks by their health, in the style of the
/// worst. The published consolidated status follows if it differs, then the disks that are not
/// published.
/// @param columns the width of the terminal: lines that are longer go on in the next line; unset
/// for no limit
StyledText TopologyAsText(const Topology& topology,
                          std::optional<std::size_t> columns = std::nullopt);

}  // namespace qv::view
