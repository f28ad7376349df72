#include "qvsata/view/text/TextTable.h"

#include "qvsata/view/text/Columns.h"

namespace qv::view {
namespace {

StyledText AsBlocks(const TextTable& table, std::size_t columns) {
    const LinePlace next{0, "    ", columns};
    StyledText text;
    for (const CellRow& row : table.rows) {
        const auto rest = row.begin() + static_cast<std::ptrdiff_t>(table.inTitle);
        AppendFlowed({row.begin(), rest}, "  ", next, text);
        CellRow pairs;
        for (std::size_t column = table.inTitle; column < row.size(); ++column) {
            const Span& value = row[column].span;
            pairs.push_back({{table.heading[column].span.text + ' ' + value.text, value.style}});
        }
        text.push_back({next.next});
        AppendFlowed(pairs, "  ", {next.next.size(), next.next, columns}, text);
    }
    return text;
}

}  // namespace

StyledText TableAsText(const TextTable& table, std::optional<std::size_t> columns) {
    std::vector<std::size_t> widths;
    WidenFor(table.heading, widths);
    for (const CellRow& row : table.rows) {
        WidenFor(row, widths);
    }
    if (columns && WidthOfRow(widths) > *columns) {
        return AsBlocks(table, *columns);
    }
    StyledText text;
    AppendRow(table.heading, widths, text);
    for (const CellRow& row : table.rows) {
        AppendRow(row, widths, text);
    }
    return text;
}

}  // namespace qv::view
