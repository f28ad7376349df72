#pragma once

#include <string>
#include <vector>

namespace qv::view {

/// What a piece of text means to its reader; a terminal shows it as a colour.
enum class Style { plain, good, caution, bad, faint };

struct Span {
    std::string text;  ///< UTF-8
    Style style = Style::plain;

    bool operator==(const Span&) const = default;
};

using StyledText = std::vector<Span>;

/// The text alone.
std::string PlainText(const StyledText& text);

}  // namespace qv::view
