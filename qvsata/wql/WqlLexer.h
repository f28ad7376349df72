#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qv::service {

enum class WqlTokenKind { word, text, number, symbol, path, end };

/// A token of a query: a word, a quoted text (escapes resolved), a number, a symbol (an operator or
/// other sign), or an object path (the text between braces).
struct WqlToken {
    WqlTokenKind kind = WqlTokenKind::end;
    std::string value;
    std::size_t column = 1;  ///< of its first byte; of the first byte inside braces or quotes
};

/// Splits a query into tokens; the last one is of kind `end`. Throws WqlError. Blanks and line ends
/// separate tokens.
///
///     word   = ( letter | "_" | non-ASCII byte ) { letter | digit | "_" | non-ASCII byte } ;
///     text   = '"' { character | escape } '"' | "'" { character | escape } "'" ;
///     escape = "\\" | '\"' | "\'" ;
///     number = [ "+" | "-" ] ( digits [ "." [ digits ] ] | "." digits )
///              [ ( "e" | "E" ) [ "+" | "-" ] digits ] ;
///     path   = "{" object path "}" ;
///
/// A backslash that begins no escape stands for itself. Inside the quotes of a path a brace is part
/// of the value. The parser checks the form of a number and that it is in the range of double.
std::vector<WqlToken> SplitWql(std::string_view text);

/// Returns whether a text is a word.
bool IsWqlWord(std::string_view text);

}  // namespace qv::service
