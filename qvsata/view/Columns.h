#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qv::view {

/// Columns that a UTF-8 text takes up, one for each character.
std::size_t WidthOf(std::string_view text);

/// The blanks that make a text as wide as `width`; none when it is that wide already.
std::string Padding(std::size_t width, std::string_view text);

/// The text without blanks at its ends.
std::string_view Trimmed(std::string_view text);

/// The text, or a dash for an empty one.
std::string OrDash(const std::string& text);

}  // namespace qv::view
