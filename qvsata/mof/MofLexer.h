#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/mof/MofError.h"

namespace qv::service {

enum class MofTokenKind {
    end,
    name,       ///< identifier or keyword
    alias,      ///< `$Name`; text is the name without the dollar sign
    text,       ///< one quoted literal, escapes resolved
    integer,    ///< magnitude and negative
    real,       ///< real
    character,  ///< a character in single quotes; magnitude
    pragma,     ///< `#pragma`
    symbol,     ///< one of { } [ ] ( ) ; , : =
};

struct MofToken {
    MofTokenKind kind = MofTokenKind::end;
    std::string text;
    std::uint64_t magnitude = 0;
    bool negative = false;
    double real = 0;
    MofPosition position;
};

/// The tokens of a MOF text in UTF-8, comments left out, with one token of kind end behind the
/// last. Numbers may be decimal, hexadecimal (0x1F), octal (017) or binary (101b).
/// @throws MofError at the first character that belongs to no token.
std::vector<MofToken> TokenizeMof(std::string_view text, std::string_view fileName);

}  // namespace qv::service
