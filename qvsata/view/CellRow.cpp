#include "qvsata/view/CellRow.h"

#include <algorithm>
#include <string>

#include "qvsata/view/Columns.h"

namespace qv::view {

void WidenFor(const CellRow& row, std::vector<std::size_t>& widths) {
    widths.resize(row.size());
    for (std::size_t column = 0; column < row.size(); ++column) {
        widths[column] = std::max(widths[column], WidthOf(row[column].span.text));
    }
}

void AppendRow(const CellRow& row, const std::vector<std::size_t>& widths, StyledText& text) {
    std::string gap;
    for (std::size_t column = 0; column < row.size(); ++column) {
        const Cell& cell = row[column];
        const std::string padding = Padding(widths[column], cell.span.text);
        text.push_back({gap + (cell.toTheRight ? padding : "")});
        text.push_back(cell.span);
        gap = (cell.toTheRight ? "" : padding) + (widths[column] == 0 ? "" : "  ");
    }
    text.push_back({"\n"});
}

}  // namespace qv::view
