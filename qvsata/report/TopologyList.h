#pragma once

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

/// Writes the parts of an item as nested lists: what the picture shows, for those who cannot see
/// it.
void WriteTopologyList(Html& html, const TopologyItem& computer);

}  // namespace qv::report
