#include "qvsata/wql/WqlCursor.h"

#include <algorithm>
#include <array>

#include "qvsata/wql/Wql.h"
#include "source/Text.h"

namespace qv::service {
namespace {

constexpr std::array<std::string_view, 12> reservedWords = {
    "SELECT", "FROM", "WHERE", "AND", "OR", "NOT", "LIKE", "IS", "ISA", "NULL", "TRUE", "FALSE"};

}  // namespace

bool WqlCursor::IsAtWord(std::string_view word) const {
    return IsAt(WqlTokenKind::word) && EqualsIgnoringCase(Peek().value, word);
}

bool WqlCursor::IsAtSymbol(std::string_view symbol) const {
    return IsAt(WqlTokenKind::symbol) && Peek().value == symbol;
}

bool WqlCursor::TakeWord(std::string_view word) {
    const bool found = IsAtWord(word);
    next_ += found ? 1 : 0;
    return found;
}

bool WqlCursor::TakeSymbol(std::string_view symbol) {
    const bool found = IsAtSymbol(symbol);
    next_ += found ? 1 : 0;
    return found;
}

void WqlCursor::ExpectWord(std::string_view word) {
    if (!TakeWord(word)) {
        Fail("expected " + std::string(word));
    }
}

WqlName WqlCursor::ExpectText(const char* what) {
    if (!IsAt(WqlTokenKind::text)) {
        Fail(std::string("expected ") + what);
    }
    const WqlToken& token = Take();
    return {token.value, token.column};
}

WqlName WqlCursor::ExpectName(const char* what) {
    const bool isReserved = std::ranges::any_of(
        reservedWords, [this](std::string_view reserved) { return IsAtWord(reserved); });
    if (!IsAt(WqlTokenKind::word) || isReserved) {
        Fail(std::string("expected ") + what);
    }
    const WqlToken& token = Take();
    return {token.value, token.column};
}

void WqlCursor::Fail(const std::string& reason) const {
    throw WqlError(reason, Peek().column);
}

}  // namespace qv::service
