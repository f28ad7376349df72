#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/view/text/StyledText.h"

namespace qv::view {

/// The content of one column of a line.
struct Cell {
    Span span;
    bool toTheRight = false;
};
using CellRow = std::vector<Cell>;

/// The place of a line: where it begins, and where it goes on if it is too long.
struct LinePlace {
    std::size_t used = 0;  ///< columns that are in use where the line begins
    std::string next;      ///< the beginning of the lines that follow
    std::size_t columns;   ///< of the terminal
};

/// Widens `widths`, the columns' widths, to those of a row's cells.
void WidenFor(const CellRow& row, std::vector<std::size_t>& widths);

/// Appends a row as a line of aligned columns with two blanks between them. A column without a
/// width is left out. Cells are padded to at most 100 columns; what is longer stays whole.
void AppendRow(const CellRow& row, const std::vector<std::size_t>& widths, StyledText& text);

/// Returns the columns of a line of AppendRow.
std::size_t WidthOfRow(const std::vector<std::size_t>& widths);

/// Appends the cells that are not empty, `gap` apart, with line feeds: a cell that does not fit
/// begins a new line, and no cell is broken.
void AppendFlowed(const CellRow& row, std::string_view gap, const LinePlace& place,
                  StyledText& text);

}  // namespace qv::view
