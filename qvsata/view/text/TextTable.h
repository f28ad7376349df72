#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "qvsata/view/text/CellRow.h"

namespace qv::view {

/// A table with a heading.
struct TextTable {
    CellRow heading;
    std::vector<CellRow> rows;  ///< each as long as the heading
    std::size_t inTitle = 1;    ///< the columns that name a row
    /// Columns that a narrow terminal may lack, the most important one first.
    std::vector<std::size_t> dispensable = {};
};

/// Returns the table's lines. Where a terminal of `columns` columns is too narrow for them, leaves
/// out dispensable columns, each that does not fit beside the more important ones, and names them
/// in a last line. If the rest does not fit either, returns a block for each row: the columns that
/// name it, then the others with their headings.
StyledText TableAsText(const TextTable& table, std::optional<std::size_t> columns);

}  // namespace qv::view
