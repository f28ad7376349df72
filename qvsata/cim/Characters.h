#pragma once

#include <optional>
#include <string_view>

namespace qv::service {

/// A character at the beginning of a text.
struct Character {
    std::string_view bytes;        ///< as in the text
    std::optional<char32_t> code;  ///< nothing for a byte that is not part of UTF-8
};

/// Returns the first character of a text, which must not be empty.
Character FirstCharacter(std::string_view text);

/// Returns whether a character would control a terminal, end a line, turn the direction of
/// writing or be invisible; also true for a byte that is not UTF-8.
bool ControlsText(const Character& character);

}  // namespace qv::service
