#include "qvsata/view/TopologyText.h"

#include <algorithm>

#include "qvsata/view/Columns.h"
#include "qvsata/view/DiskCells.h"
#include "qvsata/view/StyledStatus.h"

namespace qv::view {
namespace {

/// A line of the tree and its child lines.
struct Node {
    StyledText title;
    StyledText detail;  ///< a second line; none when it is empty
    std::vector<Node> children;
    const Disk* disk = nullptr;  ///< the disk that the line shows; it has no title of its own
};

/// The tree branches in front of a node at one level.
constexpr std::size_t levelWidth = 3;

class Writer {
public:
    void Write(const Topology& topology, const std::vector<Node>& nodes) {
        for (const Disk* disk : DisksOf(topology)) {
            WidenFor(DiskCells(*disk), widths_);
        }
        diskLevel_ = DeepestDisk(nodes, 1);
        WriteNodes(nodes, "", 1);
    }

    StyledText Take() { return std::move(text_); }

private:
    static std::size_t DeepestDisk(const std::vector<Node>& nodes, std::size_t level) {
        std::size_t deepest = 0;
        for (const Node& node : nodes) {
            deepest = std::max(
                {deepest, node.disk != nullptr ? level : 0, DeepestDisk(node.children, level + 1)});
        }
        return deepest;
    }

    void WriteNodes(const std::vector<Node>& nodes, const std::string& prefix, std::size_t level) {
        for (const Node& node : nodes) {
            const bool isLast = &node == &nodes.back();
            std::string branch = prefix + (isLast ? "└─" : "├─");
            const std::string below = prefix + (isLast ? "   " : "│  ");
            if (node.disk != nullptr) {
                // Disks at every level share the same columns.
                for (std::size_t dash = levelWidth * level; dash < levelWidth * diskLevel_;
                     ++dash) {
                    branch += "─";
                }
                text_.push_back({branch + ' '});
                AppendRow(DiskCells(*node.disk), widths_, text_);
                continue;
            }
            text_.push_back({branch + ' '});
            WriteLine(node.title);
            if (!node.detail.empty()) {
                text_.push_back({below + (node.children.empty() ? "   " : "│  ")});
                WriteLine(node.detail);
            }
            WriteNodes(node.children, below, level + 1);
        }
    }

    void WriteLine(const StyledText& line) {
        std::ranges::copy(line, std::back_inserter(text_));
        text_.push_back({"\n"});
    }

    StyledText text_;
    std::vector<std::size_t> widths_;
    std::size_t diskLevel_ = 0;
};

void AddDisks(const std::vector<Disk>& disks, std::vector<Node>& nodes) {
    std::ranges::transform(disks, std::back_inserter(nodes), [](const Disk& disk) {
        return Node{{}, {}, {}, &disk};
    });
}

const Span notReadable{"not readable", Style::caution};

Node ChannelNode(const Channel& channel, const Sight& sight) {
    Node node;
    node.title = {{"channel " + OrDash(channel.name) + "  "}, StatusSpan(channel.status)};
    if (channel.disks.empty() && sight.disks && sight.attachments) {
        node.title.push_back({"  empty", Style::faint});
    } else if (channel.disks.empty()) {
        node.title.push_back({"  disks "});
        node.title.push_back(notReadable);
    }
    AddDisks(channel.disks, node.children);
    return node;
}

void AddChannels(const std::vector<Channel>& channels, const Sight& sight,
                 std::vector<Node>& nodes) {
    std::ranges::transform(channels, std::back_inserter(nodes), [&sight](const Channel& channel) {
        return ChannelNode(channel, sight);
    });
}

StyledText SoftwareText(const Controller& controller) {
    std::string text;
    const auto append = [&text](const std::string& kind, const std::optional<Software>& software) {
        if (software) {
            text += text.empty() ? "" : " · ";
            text += kind + software->name;
            text += software->version.empty() ? "" : ' ' + software->version;
        }
    };
    append("driver ", controller.driver);
    append("", controller.firmware);
    append("", controller.bios);
    return text.empty() ? StyledText{} : StyledText{{text, Style::faint}};
}

Node ControllerNode(const Controller& controller, const Sight& sight) {
    Node node;
    node.title = {{OrDash(controller.name) + "  "}, StatusSpan(controller.status)};
    node.detail = SoftwareText(controller);
    AddChannels(controller.channels, sight, node.children);
    AddDisks(controller.disks, node.children);
    if (node.children.empty() && sight.disks && sight.controllers && sight.attachments) {
        node.title.push_back({"  no channels, no disks", Style::faint});
    } else if (node.children.empty()) {
        node.title.push_back({"  channels, disks "});
        node.title.push_back(notReadable);
    }
    return node;
}

std::vector<Node> Nodes(const Topology& topology) {
    std::vector<Node> nodes;
    std::ranges::transform(topology.controllers, std::back_inserter(nodes),
                           [&topology](const Controller& controller) {
                               return ControllerNode(controller, topology.sight);
                           });
    if (!topology.sight.controllers) {
        nodes.push_back({{{"IDE and SATA controllers "}, notReadable}, {}, {}, nullptr});
    } else if (nodes.empty()) {
        nodes.push_back({{{"no IDE or SATA controllers", Style::faint}}, {}, {}, nullptr});
    }
    if (!topology.looseChannels.empty()) {
        Node group{{{"channels of unknown controllers"}}, {}, {}, nullptr};
        AddChannels(topology.looseChannels, topology.sight, group.children);
        nodes.push_back(std::move(group));
    }
    if (!topology.looseDisks.empty()) {
        const bool unattached = topology.sight.controllers && topology.sight.attachments;
        Node group{unattached ? StyledText{{"disks without a known attachment"}}
                              : StyledText{{"disks whose attachment is "}, notReadable},
                   {},
                   {},
                   nullptr};
        AddDisks(topology.looseDisks, group.children);
        nodes.push_back(std::move(group));
    }
    return nodes;
}

/// Counts the disks, in total and by status, the statuses in order of appearance.
StyledText Summary(const Topology& topology) {
    if (!topology.sight.disks) {
        return {{"disks "}, notReadable};
    }
    const std::vector<const Disk*> disks = DisksOf(topology);
    if (disks.empty()) {
        return {{"no disks"}};
    }
    std::vector<std::pair<const Health*, std::size_t>> counts;
    for (const Disk* disk : disks) {
        const auto known = std::ranges::find_if(
            counts, [disk](const auto& one) { return one.first->word == disk->status.word; });
        if (known == counts.end()) {
            counts.emplace_back(&disk->status, 1);
        } else {
            ++known->second;
        }
    }
    StyledText text{{std::to_string(disks.size()) + (disks.size() == 1 ? " disk" : " disks")}};
    std::string separator = ": ";
    for (const auto& [status, count] : counts) {
        text.push_back({separator});
        text.push_back({std::to_string(count) + ' ' + status->word, StyleOf(*status)});
        separator = ", ";
    }
    return text;
}

}  // namespace

StyledText TopologyAsText(const Topology& topology) {
    Writer writer;
    writer.Write(topology, Nodes(topology));
    StyledText text{
        {(topology.computer.empty() ? "computer without a name" : topology.computer) + '\n'}};
    std::ranges::move(writer.Take(), std::back_inserter(text));
    std::ranges::move(Summary(topology), std::back_inserter(text));
    if (topology.collection && topology.sight.disks) {
        text.push_back({"; consolidated status "});
        text.push_back({topology.collection->word, StyleOf(*topology.collection)});
    }
    text.push_back({"\n"});
    return text;
}

}  // namespace qv::view
