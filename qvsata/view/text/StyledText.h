#pragma once

#include <string>
#include <vector>

namespace qv::view {

/// The meaning of a piece of text; a terminal shows it as a colour.
enum class Style { plain, good, caution, bad, faint };

struct Span {
    std::string text;  ///< UTF-8
    Style style = Style::plain;

    bool operator==(const Span&) const = default;
};

using StyledText = std::vector<Span>;

/// Returns the text without its styles.
std::string PlainText(const StyledText& text);

}  // namespace qv::view
