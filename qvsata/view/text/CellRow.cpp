#include "qvsata/view/text/CellRow.h"

#include <algorithm>
#include <string>

#include "qvsata/view/text/Columns.h"

namespace qv::view {
namespace {

// One cell of any length must not pad the others of its column to that.
constexpr std::size_t widestPadding = 100;

}  // namespace

void WidenFor(const CellRow& row, std::vector<std::size_t>& widths) {
    widths.resize(row.size());
    for (std::size_t column = 0; column < row.size(); ++column) {
        widths[column] = std::max(widths[column], WidthOf(row[column].span.text));
    }
}

void AppendRow(const CellRow& row, const std::vector<std::size_t>& widths, StyledText& text) {
    std::string gap;
    for (std::size_t column = 0; column < row.size(); ++column) {
        if (widths[column] == 0) {
            continue;
        }
        const Cell& cell = row[column];
        const std::string padding =
            Padding(std::min(widths[column], widestPadding), cell.span.text);
        text.push_back({gap + (cell.toTheRight ? padding : "")});
        text.push_back(cell.span);
        gap = (cell.toTheRight ? "" : padding) + "  ";
    }
    text.push_back({"\n"});
}

std::size_t WidthOfRow(const std::vector<std::size_t>& widths) {
    constexpr std::size_t gap = 2;
    std::size_t width = 0;
    for (const std::size_t one : widths) {
        width += one == 0 ? 0 : one + (width == 0 ? 0 : gap);
    }
    return width;
}

void AppendFlowed(const CellRow& row, std::string_view gap, const LinePlace& place,
                  StyledText& text) {
    std::size_t used = place.used;
    bool isFirst = true;
    for (const Cell& cell : row) {
        const std::size_t width = WidthOf(cell.span.text);
        if (width == 0) {
            continue;
        }
        if (isFirst) {
            used += width;
        } else if (used + WidthOf(gap) + width <= place.columns) {
            text.push_back({std::string(gap)});
            used += WidthOf(gap) + width;
        } else {
            text.push_back({'\n' + place.next});
            used = WidthOf(place.next) + width;
        }
        text.push_back(cell.span);
        isFirst = false;
    }
    text.push_back({"\n"});
}

}  // namespace qv::view
