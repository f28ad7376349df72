#include "qvsata/mof/MofCursor.h"

#include "qvsata/mof/MofError.h"
#include "source/Text.h"

namespace qv::service {
namespace {

std::string InQuotes(std::string_view text) {
    std::string quoted(1, '\'');
    quoted += text;
    quoted += '\'';
    return quoted;
}

/// Returns the text for a token in messages.
std::string Description(const MofToken& token) {
    switch (token.kind) {
        case MofTokenKind::end:
            return "the end of the file";
        case MofTokenKind::name:
        case MofTokenKind::symbol:
            return InQuotes(token.text);
        case MofTokenKind::alias:
            return InQuotes('$' + token.text);
        case MofTokenKind::pragma:
            return InQuotes("#pragma");
        default:
            return "a value";
    }
}

}  // namespace

bool MofCursor::IsSymbol(std::string_view symbol) const {
    return Now().kind == MofTokenKind::symbol && Now().text == symbol;
}

bool MofCursor::IsKeyword(std::string_view keyword) const {
    return Now().kind == MofTokenKind::name && EqualsIgnoringCase(Now().text, keyword);
}

bool MofCursor::TakeSymbol(std::string_view symbol) {
    const bool taken = IsSymbol(symbol);
    at_ += taken ? 1 : 0;
    return taken;
}

bool MofCursor::TakeKeyword(std::string_view keyword) {
    const bool taken = IsKeyword(keyword);
    at_ += taken ? 1 : 0;
    return taken;
}

void MofCursor::ExpectSymbol(std::string_view symbol) {
    if (!TakeSymbol(symbol)) {
        Fail(InQuotes(symbol));
    }
}

std::string MofCursor::ExpectName(std::string_view what) {
    if (Now().kind != MofTokenKind::name) {
        Fail(what);
    }
    return Take().text;
}

std::string MofCursor::ExpectAlias() {
    if (Now().kind != MofTokenKind::alias) {
        Fail("alias");
    }
    return Take().text;
}

std::string MofCursor::TakeTexts() {
    std::string joined;
    while (Now().kind == MofTokenKind::text) {
        joined += Take().text;
    }
    return joined;
}

void MofCursor::SkipTo(std::string_view symbol) {
    while (!IsSymbol(symbol)) {
        if (Now().kind == MofTokenKind::end) {
            Fail(InQuotes(symbol));
        }
        Take();
    }
    Take();
}

void MofCursor::Fail(std::string_view expected) const {
    std::string what(expected);
    what += " expected before ";
    what += Description(Now());
    throw MofError(fileName_, Now().position, what);
}

}  // namespace qv::service
