#include "qvsata/view/DiskTable.h"

#include <algorithm>
#include <string>

#include "qvsata/view/Columns.h"
#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/SizeText.h"
#include "qvsata/view/StyledStatus.h"

namespace qv::view {
namespace {

struct Column {
    std::string heading;
    bool toTheRight = false;
};

const std::vector<Column> columnsOfDisk{{"#", true},     {"Health"},   {"Model"},
                                        {"Size", true},  {"Bus"},      {"Published"},
                                        {"Attached to"}, {"Firmware"}, {"S/N"}};

using Line = std::vector<Span>;  ///< a span for each column

Line LineOf(const OsDisk& disk) {
    return {{disk.number ? std::to_string(*disk.number) : "-"},
            StatusSpan(HealthOf(disk)),
            {OrDash(disk.model)},
            {GigabytesText(disk.size)},
            {OrDash(disk.bus)},
            disk.whyUnpublished.empty() ? Span{"yes"}
                                        : Span{"no: " + disk.whyUnpublished, Style::caution},
            {OrDash(disk.attachment)},
            {OrDash(disk.firmware)},
            {SerialNumberText(disk.serialNumber)}};
}

Line Heading() {
    Line line;
    for (const Column& column : columnsOfDisk) {
        line.push_back({column.heading, Style::faint});
    }
    return line;
}

std::vector<std::size_t> WidthsOf(const std::vector<Line>& lines) {
    std::vector<std::size_t> widths(columnsOfDisk.size());
    for (const Line& line : lines) {
        for (std::size_t column = 0; column < widths.size(); ++column) {
            widths[column] = std::max(widths[column], WidthOf(line[column].text));
        }
    }
    return widths;
}

void AppendLine(const Line& line, const std::vector<std::size_t>& widths, StyledText& text) {
    std::string gap;
    for (std::size_t column = 0; column < line.size(); ++column) {
        const std::string padding = Padding(widths[column], line[column].text);
        text.push_back({gap + (columnsOfDisk[column].toTheRight ? padding : "")});
        text.push_back(line[column]);
        gap = (columnsOfDisk[column].toTheRight ? "" : padding) + "  ";
    }
    text.push_back({"\n"});
}

StyledText AsTable(const std::vector<Line>& lines, const std::vector<std::size_t>& widths) {
    StyledText text;
    for (const Line& line : lines) {
        AppendLine(line, widths, text);
    }
    return text;
}

/// Returns a block per disk: number, health and model, then a line for each other column.
StyledText AsBlocks(const std::vector<Line>& disks) {
    constexpr std::size_t inTitle = 3;
    std::size_t width = 0;
    for (std::size_t column = inTitle; column < columnsOfDisk.size(); ++column) {
        width = std::max(width, WidthOf(columnsOfDisk[column].heading));
    }
    StyledText text;
    for (const Line& disk : disks) {
        text.push_back({"#" + disk[0].text + "  "});
        text.push_back(disk[1]);
        text.push_back({"  " + disk[2].text + '\n'});
        for (std::size_t column = inTitle; column < disk.size(); ++column) {
            const std::string& heading = columnsOfDisk[column].heading;
            text.push_back({"    " + heading + Padding(width, heading) + "  "});
            text.push_back(disk[column]);
            text.push_back({"\n"});
        }
    }
    return text;
}

}  // namespace

StyledText DisksAsText(const std::vector<OsDisk>& disks, std::optional<std::size_t> columns) {
    std::vector<Line> lines;
    std::ranges::transform(disks, std::back_inserter(lines), LineOf);
    std::vector<Line> withHeading = lines;
    withHeading.insert(withHeading.begin(), Heading());
    const std::vector<std::size_t> widths = WidthsOf(withHeading);
    std::size_t total = 2 * (widths.size() - 1);
    for (const std::size_t width : widths) {
        total += width;
    }
    return columns && total > *columns ? AsBlocks(lines) : AsTable(withHeading, widths);
}

}  // namespace qv::view
