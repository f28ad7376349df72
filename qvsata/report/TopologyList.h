#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "qvsata/report/Html.h"
#include "qvsata/view/Topology.h"
#include "qvsata/view/text/StyledText.h"

namespace qv::report {

/// A thing of a host's topology, as it is drawn and listed.
struct TopologyItem {
    std::string name{};
    std::string facts{};   ///< status and remarks
    std::string detail{};  ///< of a controller: its software
    view::Style style = view::Style::plain;
    std::vector<TopologyItem> parts{};  ///< what is attached to it
};

/// Returns the computer with everything that is attached to it: published, not published, or not
/// readable.
TopologyItem ItemOf(const view::Topology& topology);

/// Returns the computer if it has at most `most` items, itself among them. Otherwise with the worst
/// of them, what leads to those, and as the last part the number of the others.
TopologyItem BoundedTo(std::size_t most, TopologyItem computer);

/// Writes the parts of an item as nested lists: what the picture shows, for those who cannot see
/// it.
void WriteTopologyList(Html& html, const TopologyItem& computer);

}  // namespace qv::report
