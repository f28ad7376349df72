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

/// Returns the tokens of a MOF text in UTF-8, with or without a byte order mark; the last token is
/// of kind end. Blanks, line ends and comments (// and /* */) separate tokens and are dropped.
///
///     name      = ( letter | "_" ) { letter | digit | "_" } ;
///     alias     = "$" name ;
///     text      = '"' { character of the line | escape } '"' ;
///     character = "'" ( ASCII character | escape ) "'" ;
///     escape    = "\" ( "b" | "t" | "n" | "f" | "r" | '"' | "'" | "\" )
///               | "\" ( "x" | "X" ) one to four hexadecimal digits ;
///     integer   = [ "+" | "-" ] ( decimal digits | "0" octal digits
///               | ( "0x" | "0X" ) hexadecimal digits | binary digits ( "b" | "B" ) ) ;
///     real      = [ "+" | "-" ] decimal digits "." { decimal digit }
///                 [ ( "e" | "E" ) [ "+" | "-" ] decimal digits ] ;
///
/// An integer has a magnitude of at most 64 bits. A real is 0 or in the range of a double.
/// @throws MofError at the first character that belongs to no token.
std::vector<MofToken> TokenizeMof(std::string_view text, std::string_view fileName);

}  // namespace qv::service
