#include "qvsata/view/TopologyNodes.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "qvsata/view/StyledStatus.h"
#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Columns.h"

namespace qv::view {
namespace {

void AddDisks(const std::vector<Disk>& disks, std::vector<TopologyNode>& nodes) {
    std::ranges::transform(disks, std::back_inserter(nodes), [](const Disk& disk) {
        return TopologyNode{{}, {}, {}, &disk};
    });
}

const Span notReadable{"not readable", Style::caution};

TopologyNode ChannelNode(const Channel& channel, const Sight& sight) {
    TopologyNode node;
    node.title = {{{"channel " + OrDash(channel.name)}}, {StatusSpan(channel.status)}};
    if (channel.disks.empty() && sight.disks && sight.attachments) {
        node.title.push_back(
            {{channel.hasUnpublished ? "no published disk" : "no disk", Style::faint}});
    } else if (channel.disks.empty()) {
        node.title.push_back({{"disks " + notReadable.text, notReadable.style}});
    }
    AddDisks(channel.disks, node.children);
    return node;
}

void AddChannels(const std::vector<Channel>& channels, const Sight& sight,
                 std::vector<TopologyNode>& nodes) {
    std::ranges::transform(channels, std::back_inserter(nodes), [&sight](const Channel& channel) {
        return ChannelNode(channel, sight);
    });
}

CellRow SoftwareCells(const Controller& controller) {
    CellRow cells;
    const auto append = [&cells](const std::string& kind, const std::optional<Software>& software) {
        if (software) {
            const std::string version =
                software->version.empty() ? "" : ' ' + Printable(software->version);
            cells.push_back({{kind + Printable(software->name) + version, Style::faint}});
        }
    };
    append("driver ", controller.driver);
    append("", controller.firmware);
    append("", controller.bios);
    return cells;
}

TopologyNode ControllerNode(const Controller& controller, const Sight& sight) {
    TopologyNode node;
    node.title = {{{OrDash(controller.name)}}, {StatusSpan(controller.status)}};
    node.detail = SoftwareCells(controller);
    AddChannels(controller.channels, sight, node.children);
    AddDisks(controller.disks, node.children);
    if (node.children.empty() && sight.disks && sight.controllers && sight.attachments) {
        node.title.push_back({{controller.hasUnpublished ? "no channels, no published disks"
                                                         : "no channels, no disks",
                               Style::faint}});
    } else if (node.children.empty()) {
        const bool lacksChannels = sight.controllers && sight.attachments;
        node.title.push_back(
            {{(lacksChannels ? "no channels, disks " : "channels, disks ") + notReadable.text,
              notReadable.style}});
    }
    return node;
}

/// Returns a line of its own, or one above others.
TopologyNode Heading(std::string text, Style style = Style::plain) {
    return {{{{std::move(text), style}}}, {}, {}, nullptr};
}

}  // namespace

std::vector<TopologyNode> NodesOf(const Topology& topology) {
    std::vector<TopologyNode> nodes;
    std::ranges::transform(topology.controllers, std::back_inserter(nodes),
                           [&topology](const Controller& controller) {
                               return ControllerNode(controller, topology.sight);
                           });
    if (!topology.sight.controllers) {
        nodes.push_back(Heading("IDE and SATA controllers not readable", notReadable.style));
    } else if (nodes.empty()) {
        nodes.push_back(Heading("no IDE or SATA controllers", Style::faint));
    }
    if (!topology.looseChannels.empty()) {
        TopologyNode group = Heading("channels of unknown controllers");
        AddChannels(topology.looseChannels, topology.sight, group.children);
        nodes.push_back(std::move(group));
    }
    if (!topology.looseDisks.empty()) {
        const bool unattached = topology.sight.controllers && topology.sight.attachments;
        TopologyNode group =
            unattached ? Heading("disks without a known attachment")
                       : Heading("disks whose attachment is not readable", Style::caution);
        AddDisks(topology.looseDisks, group.children);
        nodes.push_back(std::move(group));
    }
    return nodes;
}

}  // namespace qv::view
