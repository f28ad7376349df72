#include "qvsata/view/TopologyText.h"

#include <algorithm>
#include <limits>

#include "qvsata/view/DiskCells.h"
#include "qvsata/view/StyledStatus.h"
#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Columns.h"

namespace qv::view {
namespace {

/// A line of the tree and its child lines.
struct Node {
    CellRow title;
    CellRow detail;  ///< a second line; none when it is empty
    std::vector<Node> children;
    const Disk* disk = nullptr;  ///< the disk that the line shows; it has no title of its own
};

/// The tree branches in front of a node at one level.
constexpr std::size_t levelWidth = 3;
constexpr std::string_view gap = "  ";

class Writer {
public:
    explicit Writer(std::optional<std::size_t> columns)
        : columns_(columns.value_or(std::numeric_limits<std::size_t>::max())) {}

    void Write(const Topology& topology, const std::vector<Node>& nodes) {
        for (const Disk* disk : DisksOf(topology)) {
            WidenFor(DiskCells(*disk), widths_);
        }
        diskLevel_ = DeepestDisk(nodes, 1);
        isAligned_ = levelWidth * diskLevel_ + WidthOfRow(widths_) <= columns_;
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
            const std::string branch = prefix + (isLast ? "└─" : "├─");
            const std::string below = prefix + (isLast ? "   " : "│  ");
            if (node.disk != nullptr) {
                WriteDisk(*node.disk, branch, below, level);
                continue;
            }
            const std::string next = below + (node.children.empty() ? "   " : "│  ");
            WriteLine(node.title, gap, branch + ' ', next);
            if (!node.detail.empty()) {
                WriteLine(node.detail, " · ", next, next);
            }
            WriteNodes(node.children, below, level + 1);
        }
    }

    void WriteDisk(const Disk& disk, const std::string& branch, const std::string& below,
                   std::size_t level) {
        if (!isAligned_) {
            return WriteLine(DiskCells(disk), gap, branch + ' ', below + "   ");
        }
        // Disks at every level share the same columns.
        std::string line = branch;
        for (std::size_t dash = levelWidth * level; dash < levelWidth * diskLevel_; ++dash) {
            line += "─";
        }
        text_.push_back({line + ' '});
        AppendRow(DiskCells(disk), widths_, text_);
    }

    void WriteLine(const CellRow& cells, std::string_view between, const std::string& begin,
                   const std::string& next) {
        text_.push_back({begin});
        AppendFlowed(cells, between, {WidthOf(begin), next, columns_}, text_);
    }

    const std::size_t columns_;
    StyledText text_;
    std::vector<std::size_t> widths_;
    std::size_t diskLevel_ = 0;
    bool isAligned_ = true;  ///< whether the disks' lines fit with aligned columns
};

void AddDisks(const std::vector<Disk>& disks, std::vector<Node>& nodes) {
    std::ranges::transform(disks, std::back_inserter(nodes), [](const Disk& disk) {
        return Node{{}, {}, {}, &disk};
    });
}

const Span notReadable{"not readable", Style::caution};

Node ChannelNode(const Channel& channel, const Sight& sight) {
    Node node;
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
                 std::vector<Node>& nodes) {
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

Node ControllerNode(const Controller& controller, const Sight& sight) {
    Node node;
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
Node Heading(std::string text, Style style = Style::plain) {
    return {{{{std::move(text), style}}}, {}, {}, nullptr};
}

std::vector<Node> Nodes(const Topology& topology) {
    std::vector<Node> nodes;
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
        Node group = Heading("channels of unknown controllers");
        AddChannels(topology.looseChannels, topology.sight, group.children);
        nodes.push_back(std::move(group));
    }
    if (!topology.looseDisks.empty()) {
        const bool unattached = topology.sight.controllers && topology.sight.attachments;
        Node group = unattached ? Heading("disks without a known attachment")
                                : Heading("disks whose attachment is not readable", Style::caution);
        AddDisks(topology.looseDisks, group.children);
        nodes.push_back(std::move(group));
    }
    return nodes;
}

using HealthCounts = std::vector<std::pair<Health, std::size_t>>;

/// Returns each health and how many disks have it, the best first.
template <typename Disks, typename GetHealth>
HealthCounts Counted(const Disks& disks, GetHealth getHealth) {
    HealthCounts counts;
    for (const auto& disk : disks) {
        const Health health = getHealth(disk);
        const auto known = std::ranges::find_if(
            counts, [&health](const auto& one) { return one.first.word == health.word; });
        if (known == counts.end()) {
            counts.emplace_back(health, 1);
        } else {
            ++known->second;
        }
    }
    std::ranges::stable_sort(counts, {}, [](const auto& count) { return SeverityOf(count.first); });
    return counts;
}

/// Returns "3 disks: 2 OK, 1 Pred Fail" in the style of the worst.
Span CountsSpan(const std::string& what, const HealthCounts& counts) {
    std::string text = what;
    std::string separator = ": ";
    for (const auto& [health, count] : counts) {
        text += separator + std::to_string(count) + ' ' + Printable(health.word);
        separator = ", ";
    }
    return {text, StyleOf(counts.back().first)};
}

StyledText PublishedSummary(const Topology& topology) {
    const std::vector<const Disk*> disks = DisksOf(topology);
    const HealthCounts counts = Counted(disks, [](const Disk* disk) { return HealthOf(*disk); });
    if (counts.empty()) {
        return {{topology.unpublished.empty() ? "no disks" : "no published disks"}};
    }
    StyledText summary{CountsSpan(
        std::to_string(disks.size()) + (disks.size() == 1 ? " disk" : " disks"), counts)};
    const Health& worst = counts.back().first;
    if (topology.collection && SeverityOf(*topology.collection) != SeverityOf(worst)) {
        summary.push_back({"; published consolidated status: "});
        summary.push_back({Printable(topology.collection->word), StyleOf(*topology.collection)});
    }
    return summary;
}

/// Returns the summary's words on predicted failures that no line of a disk shows.
StyledText PredictionSummary(const Topology& topology) {
    StyledText summary;
    const auto count = [&summary](const std::string& what, std::size_t number, std::string noun) {
        noun += number == 1 ? "" : "s";
        summary.push_back({"; " + what + std::to_string(number) + ' ' + noun, Style::caution});
    };
    if (!topology.failingOthers.empty()) {
        count("failure predicted for ", topology.failingOthers.size(), "unknown device");
    }
    if (!topology.sight.predictions) {
        summary.push_back({"; failure predictions " + notReadable.text, notReadable.style});
    } else if (topology.unknownPredictions != 0) {
        count("failure prediction unknown of ", topology.unknownPredictions, "disk");
    }
    return summary;
}

StyledText DiskSummary(const Topology& topology) {
    if (!topology.sight.disks) {
        return {{"disks " + notReadable.text, notReadable.style}};
    }
    StyledText summary = PublishedSummary(topology);
    const HealthCounts others =
        Counted(topology.unpublished, [](const OsDisk& disk) { return HealthOf(disk); });
    if (!others.empty()) {
        summary.push_back({"; "});
        summary.push_back(
            CountsSpan(std::to_string(topology.unpublished.size()) + " not published", others));
    }
    return summary;
}

}  // namespace

StyledText TopologyAsText(const Topology& topology, std::optional<std::size_t> columns) {
    Writer writer(columns);
    writer.Write(topology, Nodes(topology));
    StyledText text{
        {(topology.computer.empty() ? "computer without a name" : Printable(topology.computer)) +
         '\n'}};
    std::ranges::move(writer.Take(), std::back_inserter(text));
    std::ranges::move(DiskSummary(topology), std::back_inserter(text));
    std::ranges::move(PredictionSummary(topology), std::back_inserter(text));
    text.push_back({"\n"});
    return text;
}

}  // namespace qv::view
