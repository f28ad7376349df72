#include "qvsata/view/TopologyText.h"

#include <algorithm>
#include <limits>

#include "qvsata/view/DiskCells.h"
#include "qvsata/view/HealthCounts.h"
#include "qvsata/view/StyledStatus.h"
#include "qvsata/view/TopologyNodes.h"
#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Columns.h"

namespace qv::view {
namespace {

/// The tree branches in front of a node at one level.
constexpr std::size_t levelWidth = 3;
constexpr std::string_view gap = "  ";

class Writer {
public:
    explicit Writer(std::optional<std::size_t> columns)
        : columns_(columns.value_or(std::numeric_limits<std::size_t>::max())) {}

    void Write(const Topology& topology, const std::vector<TopologyNode>& nodes) {
        for (const Disk* disk : DisksOf(topology)) {
            WidenFor(DiskCells(*disk), widths_);
        }
        diskLevel_ = DeepestDisk(nodes, 1);
        isAligned_ = levelWidth * diskLevel_ + WidthOfRow(widths_) <= columns_;
        WriteNodes(nodes, "", 1);
    }

    StyledText Take() { return std::move(text_); }

private:
    static std::size_t DeepestDisk(const std::vector<TopologyNode>& nodes, std::size_t level) {
        std::size_t deepest = 0;
        for (const TopologyNode& node : nodes) {
            deepest = std::max(
                {deepest, node.disk != nullptr ? level : 0, DeepestDisk(node.children, level + 1)});
        }
        return deepest;
    }

    void WriteNodes(const std::vector<TopologyNode>& nodes, const std::string& prefix,
                    std::size_t level) {
        for (const TopologyNode& node : nodes) {
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
        summary.push_back({"; failure predictions not readable", Style::caution});
    } else if (topology.unknownPredictions != 0) {
        count("failure prediction unknown for ", topology.unknownPredictions, "disk");
    }
    return summary;
}

StyledText DiskSummary(const Topology& topology) {
    if (!topology.sight.disks) {
        return {{"disks not readable", Style::caution}};
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
    writer.Write(topology, NodesOf(topology));
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
