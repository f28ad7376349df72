#include "qvsata/view/DiskTable.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <string>

#include "qvsata/view/CellRow.h"
#include "qvsata/view/Columns.h"
#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/SizeText.h"
#include "qvsata/view/StyledStatus.h"

namespace qv::view {
namespace {

const CellRow heading{
    {{"#", Style::faint}, true},     {{"Health", Style::faint}},   {{"Model", Style::faint}},
    {{"Size", Style::faint}, true},  {{"Bus", Style::faint}},      {{"Published", Style::faint}},
    {{"Attached to", Style::faint}}, {{"Firmware", Style::faint}}, {{"S/N", Style::faint}}};

CellRow RowOf(const OsDisk& disk) {
    return {{{disk.number ? std::to_string(*disk.number) : "-"}, true},
            {StatusSpan(HealthOf(disk))},
            {{OrDash(disk.model)}},
            {{GigabytesText(disk.size)}, true},
            {{OrDash(disk.bus)}},
            {disk.whyUnpublished.empty() ? Span{"yes"}
                                         : Span{"no: " + disk.whyUnpublished, Style::caution}},
            {{OrDash(disk.attachment)}},
            {{OrDash(disk.firmware)}},
            {{SerialNumberText(disk.serialNumber)}}};
}

/// Returns a block per disk: number, health and model, then a line for each other column.
StyledText AsBlocks(const std::vector<CellRow>& disks) {
    constexpr std::size_t inTitle = 3;
    std::size_t width = 0;
    for (std::size_t column = inTitle; column < heading.size(); ++column) {
        width = std::max(width, WidthOf(heading[column].span.text));
    }
    StyledText text;
    for (const CellRow& disk : disks) {
        text.push_back({"#" + disk[0].span.text + "  "});
        text.push_back(disk[1].span);
        text.push_back({"  " + disk[2].span.text + '\n'});
        for (std::size_t column = inTitle; column < disk.size(); ++column) {
            const std::string& name = heading[column].span.text;
            text.push_back({"    " + name + Padding(width, name) + "  "});
            text.push_back(disk[column].span);
            text.push_back({"\n"});
        }
    }
    return text;
}

StyledText AsTable(const std::vector<CellRow>& disks, const std::vector<std::size_t>& widths) {
    StyledText text;
    AppendRow(heading, widths, text);
    for (const CellRow& disk : disks) {
        AppendRow(disk, widths, text);
    }
    return text;
}

}  // namespace

StyledText DisksAsText(const std::vector<OsDisk>& disks, std::optional<std::size_t> columns) {
    std::vector<CellRow> rows;
    std::ranges::transform(disks, std::back_inserter(rows), RowOf);
    std::vector<std::size_t> widths;
    WidenFor(heading, widths);
    for (const CellRow& row : rows) {
        WidenFor(row, widths);
    }
    const std::size_t gaps = 2 * (widths.size() - 1);
    const std::size_t total = std::accumulate(widths.begin(), widths.end(), gaps);
    return columns && total > *columns ? AsBlocks(rows) : AsTable(rows, widths);
}

}  // namespace qv::view
