#pragma once

#include <cstddef>
#include <optional>

#include "qvsata/view/text/StyledText.h"

namespace qv::view {

/// Breaks the lines of a text that are longer than a terminal's `columns`, at blanks only: a word
/// that is longer stays whole. A broken line goes on four columns to the right of its beginning.
/// Returns the text unchanged without a terminal.
StyledText Wrapped(const StyledText& text, std::optional<std::size_t> columns);

}  // namespace qv::view
