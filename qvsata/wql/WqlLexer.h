#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qv::service {

enum class WqlTokenKind { word, text, number, symbol, path, end };

/// A piece of a query: a word, a quoted text (escapes resolved), a number, an operator or another
/// sign, an object path (the text between braces).
struct WqlToken {
    WqlTokenKind kind = WqlTokenKind::end;
    std::string value;
    std::size_t column = 1;  ///< of its first byte; of the first byte inside braces or quotes
};

/// Takes a query apart; the last token is of the kind `end`. Throws WqlError.
std::vector<WqlToken> SplitWql(std::string_view text);

}  // namespace qv::service
