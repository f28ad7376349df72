#include "qvsata/report/TopologyList.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/SizeText.h"
#include "qvsata/view/StyledStatus.h"
#include "qvsata/view/TopologyNodes.h"
#include "qvsata/view/text/Columns.h"

namespace qv::report {
namespace {

using view::Style;

/// Returns the worse of two styles.
Style WorseOf(Style one, Style other) {
    const auto rank = [](Style style) {
        return style == Style::bad ? 3 : style == Style::caution ? 2 : style == Style::good ? 1 : 0;
    };
    return rank(one) < rank(other) ? other : one;
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
        item.style = WorseOf(item.style, cell.span.style);
    }
    std::ranges::transform(node.children, std::back_inserter(item.parts), ItemOfNode);
    return item;
}

TopologyItem Unread(std::string name) {
    return {std::move(name), "not readable", {}, Style::caution};
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

void WriteTopologyList(Html& html, const TopologyItem& computer) {
    constexpr std::size_t most = 256;
    const auto list = html.In("ul");
    for (const TopologyItem& part :
         std::span(computer.parts).first(std::min(most, computer.parts.size()))) {
        const auto item = html.In("li");
        html.Inline("bdi", part.name);
        html.Text(part.facts.empty() ? "" : ", " + part.facts);
        if (!part.parts.empty()) {
            WriteTopologyList(html, part);
        }
    }
    if (computer.parts.size() > most) {
        html.Line("li", "and " + std::to_string(computer.parts.size() - most) + " more");
    }
}

}  // namespace qv::report
