#pragma once

#include <cstddef>
#include <vector>

#include "qvsata/view/StyledText.h"

namespace qv::view {

/// The content of one column of a line.
struct Cell {
    Span span;
    bool toTheRight = false;
};
using CellRow = std::vector<Cell>;

/// Widens `widths`, the columns' widths, to those of a row's cells.
void WidenFor(const CellRow& row, std::vector<std::size_t>& widths);

/// Appends a row as a line of aligned columns with two blanks between them. A column without a
/// width takes no place.
void AppendRow(const CellRow& row, const std::vector<std::size_t>& widths, StyledText& text);

}  // namespace qv::view
