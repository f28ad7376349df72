#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "qvsata/cim/Characters.h"

namespace qv::view {

using service::Character;
using service::ControlsText;
using service::FirstCharacter;

/// Returns the columns of a terminal that a character takes: none for a combining one, two for a
/// wide one (Chinese, Japanese, Korean, emoji), otherwise one. Ranges: Unicode 15, the properties
/// East_Asian_Width and General_Category, without those of rare scripts.
std::size_t ColumnsOf(const Character& character);

/// Returns a text of a device or of the operating system for a terminal. Characters that would
/// control it, end its line or turn the direction of writing, and bytes that are not UTF-8, become
/// "\x1b" or "\u202e".
std::string Printable(std::string_view text);

/// Returns the beginning of a text in UTF-8: at most so many bytes, without a part of a character.
std::string_view Beginning(std::string_view text, std::size_t mostBytes);

/// How much of a text Shortened keeps, in bytes.
struct TextLimits {
    std::size_t whole;      ///< of a text that it does not change
    std::size_t beginning;  ///< of a longer one
    std::size_t end;
};

/// Returns a text in UTF-8, of one that is too long its beginning and its end with " ... " between
/// them, without a part of a character.
std::string Shortened(std::string_view text, const TextLimits& limits);

}  // namespace qv::view
