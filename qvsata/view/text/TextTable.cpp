#include "qvsata/view/text/TextTable.h"

#include <string>

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

StyledText AsLines(const TextTable& table, const std::vector<std::size_t>& widths) {
    StyledText text;
    AppendRow(table.heading, widths, text);
    for (const CellRow& row : table.rows) {
        AppendRow(row, widths, text);
    }
    return text;
}

/// Sets the widths of the dispensable columns that do not fit to zero.
void LeaveOut(const TextTable& table, std::size_t columns, std::vector<std::size_t>& widths) {
    const std::vector<std::size_t> whole = widths;
    for (const std::size_t column : table.dispensable) {
        widths[column] = 0;
    }
    for (const std::size_t column : table.dispensable) {
        widths[column] = whole[column];
        if (WidthOfRow(widths) > columns) {
            widths[column] = 0;
        }
    }
}

std::string LeftOut(const TextTable& table, const std::vector<std::size_t>& widths) {
    std::string names;
    for (const std::size_t column : table.dispensable) {
        if (widths[column] == 0) {
            names.append(names.empty() ? "" : ", ").append(table.heading[column].span.text);
        }
    }
    return names;
}

}  // namespace

StyledText TableAsText(const TextTable& table, std::optional<std::size_t> columns) {
    std::vector<std::size_t> widths;
    WidenFor(table.heading, widths);
    for (const CellRow& row : table.rows) {
        WidenFor(row, widths);
    }
    if (!columns || WidthOfRow(widths) <= *columns) {
        return AsLines(table, widths);
    }
    LeaveOut(table, *columns, widths);
    if (WidthOfRow(widths) > *columns) {
        return AsBlocks(table, *columns);
    }
    StyledText text = AsLines(table, widths);
    text.push_back({"too narrow for: " + LeftOut(table, widths) + '\n', Style::faint});
    return text;
}

}  // namespace qv::view
