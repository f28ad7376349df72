#include "qvsata/view/text/TextTable.h"

#include <algorithm>

#include "qvsata/view/text/Columns.h"

namespace qv::view {
namespace {

StyledText AsBlocks(const TextTable& table, std::size_t columns) {
    constexpr std::string_view indent = "    ";
    std::size_t width = 0;
    for (std::size_t column = table.inTitle; column < table.heading.size(); ++column) {
        width = std::max(width, WidthOf(table.heading[column].span.text));
    }
    StyledText text;
    for (const CellRow& row : table.rows) {
        const auto rest = row.begin() + static_cast<std::ptrdiff_t>(table.inTitle);
        AppendFlowed({row.begin(), rest}, "  ", {0, std::string(indent), columns}, text);
        for (std::size_t column = table.inTitle; column < row.size(); ++column) {
            const Span& name = table.heading[column].span;
            text.push_back({std::string(indent)});
            text.push_back(name);
            text.push_back({Padding(width, name.text) + "  "});
            text.push_back(row[column].span);
            text.push_back({"\n"});
        }
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
