#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/mof/MofLexer.h"

namespace qv::service {

/// A position among the tokens of a MOF text. Keywords ignore case.
class MofCursor {
public:
    /// `fileName` is named in errors and must outlive the object. Throws MofError as TokenizeMof
    /// does.
    MofCursor(std::string_view text, std::string_view fileName)
        : fileName_(fileName), tokens_(TokenizeMof(text, fileName)) {}

    const MofToken& Now() const { return tokens_[at_]; }
    MofToken Take() { return tokens_[at_++]; }

    bool IsSymbol(std::string_view symbol) const;
    bool IsKeyword(std::string_view keyword) const;

    /// Pass the symbol or keyword if it is the current token; return whether it was.
    bool TakeSymbol(std::string_view symbol);
    bool TakeKeyword(std::string_view keyword);

    /// Pass a token that must be there. Throw MofError if it is another one; `what` describes it.
    void ExpectSymbol(std::string_view symbol);
    std::string ExpectName(std::string_view what);
    std::string ExpectAlias();

    /// Passes adjacent texts and returns them as one.
    std::string TakeTexts();

    /// Passes all tokens up to and including the symbol. Throws MofError at the end of the file.
    void SkipTo(std::string_view symbol);

    /// Throws MofError at the current token, in the place of which `expected` should be.
    [[noreturn]] void Fail(std::string_view expected) const;

private:
    std::string_view fileName_;
    std::vector<MofToken> tokens_;
    std::size_t at_ = 0;
};

}  // namespace qv::service
