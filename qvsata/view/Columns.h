#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qv::view {

/// Returns the number of columns of a UTF-8 text: one per character.
std::size_t WidthOf(std::string_view text);

/// Returns the blanks that pad a text to `width`; none if it is that wide already.
std::string Padding(std::size_t width, std::string_view text);

/// Returns the text without blanks at its ends.
std::string_view Trimmed(std::string_view text);

/// Returns the text, or a dash if it is empty.
std::string OrDash(const std::string& text);

}  // namespace qv::view
