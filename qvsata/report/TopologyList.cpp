#include "qvsata/report/TopologyList.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <set>
#include <utility>

#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/SizeText.h"
#include "qvsata/view/StyledStatus.h"
#include "qvsata/view/TopologyNodes.h"
#include "qvsata/view/text/Columns.h"

namespace qv::report {
namespace {

using view::Style;

/// Returns a number that is higher for a worse style.
int RankOf(Style style) {
    return style == Style::bad ? 3 : style == Style::caution ? 2 : style == Style::good ? 1 : 0;
}

std::string Joined(const view::CellRow& cells, std::size_t first) {
    std::string text;
    for (std::size_t cell = first; cell < cells.size(); ++cell) {
        text += (text.empty() ? "" : " · ") + cells[cell].span.text;
    }
    return text;
}

TopologyItem DiskItem(const view::Disk& disk) {
    const view::Span status = view::StatusSpan(HealthOf(disk));
    const view::Span serial =
        view::SerialNumberSpan("S/N ", disk.serialNumber, disk.serialNumberIsRead);
    return {view::DiskName(disk.number, disk.model),
            status.text + " · " + view::GigabytesText(disk.size) + " · " + serial.text,
            {},
            status.style};
}

TopologyItem UnpublishedItem(const view::OsDisk& disk) {
    const view::Span status = view::StatusSpan(HealthOf(disk));
    return {view::DiskName(disk.number, disk.model),
            status.text + " · " + view::GigabytesText(disk.size) + " · " + disk.whyUnpublished,
            {},
            status.style};
}

TopologyItem ItemOfNode(const view::TopologyNode& node) {
    TopologyItem item;
    if (node.disk != nullptr) {
        return DiskItem(*node.disk);
    }
    item.name = node.title.front().span.text;
    item.facts = Joined(node.title, 1);
    item.detail = Joined(node.detail, 0);
    for (const view::Cell& cell : node.title) {
        item.style = std::max(item.style, cell.span.style,
                              [](Style one, Style other) { return RankOf(one) < RankOf(other); });
    }
    std::ranges::transform(node.children, std::back_inserter(item.parts), ItemOfNode);
    return item;
}

TopologyItem Unread(std::string name) {
    return {std::move(name), "not readable", {}, Style::caution};
}

/// The items from the computer to one of its parts.
using Way = std::vector<const TopologyItem*>;

void CollectWays(const Way& way, std::vector<Way>& ways) {
    ways.push_back(way);
    for (const TopologyItem& part : way.back()->parts) {
        Way longer = way;
        longer.push_back(&part);
        CollectWays(longer, ways);
    }
}

/// Returns an item with those of its parts that are kept.
TopologyItem WithKept(const TopologyItem& item, const std::set<const TopologyItem*>& kept) {
    TopologyItem copy{item.name, item.facts, item.detail, item.style, {}};
    for (const TopologyItem& part : item.parts) {
        if (kept.contains(&part)) {
            copy.parts.push_back(WithKept(part, kept));
        }
    }
    return copy;
}

}  // namespace

TopologyItem ItemOf(const view::Topology& topology) {
    TopologyItem computer;
    computer.name = topology.computer.empty() ? "computer without a name" : topology.computer;
    std::ranges::transform(NodesOf(topology), std::back_inserter(computer.parts), ItemOfNode);
    if (!topology.unpublished.empty()) {
        TopologyItem group{"not published", "", {}};
        std::ranges::transform(topology.unpublished, std::back_inserter(group.parts),
                               UnpublishedItem);
        computer.parts.push_back(std::move(group));
    }
    for (const std::string& device : topology.failingOthers) {
        computer.parts.push_back(
            {device, "! failure predicted · unknown device", {}, Style::caution});
    }
    if (!topology.sight.disks) {
        computer.parts.push_back(Unread("disks"));
    }
    if (!topology.sight.predictions) {
        computer.parts.push_back(Unread("failure predictions"));
    }
    return computer;
}

TopologyItem BoundedTo(std::size_t most, TopologyItem computer) {
    std::vector<Way> ways;
    CollectWays({&computer}, ways);
    if (ways.size() <= most) {
        return computer;
    }
    std::ranges::stable_sort(ways, std::greater(),
                             [](const Way& way) { return RankOf(way.back()->style); });
    std::set<const TopologyItem*> kept;
    for (const Way& way : ways) {
        const auto added = static_cast<std::size_t>(std::ranges::count_if(
            way, [&kept](const TopologyItem* item) { return !kept.contains(item); }));
        if (kept.size() + added <= most) {
            kept.insert(way.begin(), way.end());
        }
    }
    TopologyItem bounded = WithKept(computer, kept);
    bounded.parts.push_back({"and " + std::to_string(ways.size() - kept.size()) + " more"});
    return bounded;
}

void WriteTopologyList(Html& html, const TopologyItem& computer) {
    const auto list = html.In("ul");
    for (const TopologyItem& part : computer.parts) {
        const auto item = html.In("li");
        html.Inline("bdi", part.name);
        html.Text(part.facts.empty() ? "" : ", " + part.facts);
        if (!part.parts.empty()) {
            WriteTopologyList(html, part);
        }
    }
}

}  // namespace qv::report
