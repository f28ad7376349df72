#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/wql/WqlLexer.h"
#include "qvsata/wql/WqlName.h"

namespace qv::service {

/// The tokens of a query and the position of the next one. Words ignore case.
class WqlCursor {
public:
    /// Throws WqlError if the text has no tokens, see SplitWql.
    explicit WqlCursor(std::string_view text) : tokens_(SplitWql(text)) {}

    const WqlToken& Peek() const { return tokens_[next_]; }
    const WqlToken& Take() { return tokens_[next_++]; }

    bool IsAt(WqlTokenKind kind) const { return Peek().kind == kind; }
    bool IsAtWord(std::string_view word) const;
    bool IsAtSymbol(std::string_view symbol) const;

    /// Takes the next token if it is this word or symbol; returns whether it was.
    bool TakeWord(std::string_view word);
    bool TakeSymbol(std::string_view symbol);

    /// Takes the next token. Throws WqlError if it is not this word; a text in quotes; a name, that
    /// is, a word that is not reserved. `what` says in the message what was expected.
    void ExpectWord(std::string_view word);
    WqlName ExpectText(const char* what);
    WqlName ExpectName(const char* what);

    /// Throws WqlError with the column of the next token.
    [[noreturn]] void Fail(const std::string& reason) const;

private:
    std::vector<WqlToken> tokens_;
    std::size_t next_ = 0;
};

}  // namespace qv::service
