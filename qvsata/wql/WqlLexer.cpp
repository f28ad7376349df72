#include "qvsata/wql/WqlLexer.h"

#include <algorithm>
#include <array>
#include <utility>

#include "qvsata/wql/Wql.h"

namespace qv::service {
namespace {

constexpr std::string_view blanks = " \t\r\n";

bool IsDecimal(char c) {
    return c >= '0' && c <= '9';
}

bool IsWordByte(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || IsDecimal(c) || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

// Two-character signs come first, so that the longest match is taken.
constexpr std::array<std::string_view, 11> symbols = {"<>", "!=", "<=", ">=", "=", "<",
                                                      ">",  "(",  ")",  ",",  "*"};

class WqlLexer {
public:
    explicit WqlLexer(std::string_view text) : text_(text) {}

    std::vector<WqlToken> Split() {
        std::vector<WqlToken> tokens;
        do {
            tokens.push_back(Next());
        } while (tokens.back().kind != WqlTokenKind::end);
        return tokens;
    }

private:
    WqlToken Next() {
        position_ = std::min(text_.size(), text_.find_first_not_of(blanks, position_));
        if (position_ == text_.size()) {
            return {WqlTokenKind::end, {}, position_ + 1};
        }
        const char c = text_[position_];
        if (c == '\'' || c == '"') {
            return NextText(c);
        }
        if (c == '{') {
            return NextPath();
        }
        if (IsDecimal(c) || ((c == '-' || c == '+' || c == '.') && position_ + 1 < text_.size() &&
                             (IsDecimal(text_[position_ + 1]) || text_[position_ + 1] == '.'))) {
            return NextNumber();
        }
        if (IsWordByte(c)) {
            return Take(WqlTokenKind::word, LengthWhile(position_, IsWordByte));
        }
        const std::string_view rest = text_.substr(position_);
        const auto* symbol = std::ranges::find_if(
            symbols, [rest](std::string_view candidate) { return rest.starts_with(candidate); });
        if (symbol == symbols.end()) {
            throw WqlError("unexpected character", position_ + 1);
        }
        return Take(WqlTokenKind::symbol, symbol->size());
    }

    WqlToken NextText(char quote) {
        const std::size_t begin = position_++;
        WqlToken token{WqlTokenKind::text, {}, begin + 2};
        while (position_ < text_.size() && text_[position_] != quote) {
            if (text_[position_] == '\\' && position_ + 1 < text_.size()) {
                const char next = text_[position_ + 1];
                if (next == '\\' || next == '\'' || next == '"') {
                    ++position_;
                }
            }
            token.value += text_[position_++];
        }
        if (position_ == text_.size()) {
            throw WqlError("the quote is not closed", begin + 1);
        }
        ++position_;
        return token;
    }

    // Braces and the other kind of quotes inside quoted key values belong to the value.
    WqlToken NextPath() {
        const std::size_t begin = position_ + 1;
        char quote = 0;
        for (std::size_t i = begin; i < text_.size(); ++i) {
            const char c = text_[i];
            if (quote != 0 && c == '\\') {
                ++i;
            } else if (quote != 0) {
                quote = c == quote ? '\0' : quote;
            } else if (c == '"' || c == '\'') {
                quote = c;
            } else if (c == '}') {
                position_ = i + 1;
                return TrimmedPath(begin, i);
            }
        }
        throw WqlError("the brace is not closed", begin);
    }

    WqlToken TrimmedPath(std::size_t begin, std::size_t end) const {
        begin = std::min(end, text_.find_first_not_of(blanks, begin));
        while (end > begin && blanks.find(text_[end - 1]) != std::string_view::npos) {
            --end;
        }
        return {WqlTokenKind::path, std::string(text_.substr(begin, end - begin)), begin + 1};
    }

    WqlToken NextNumber() {
        std::size_t end = position_ + 1;
        end += LengthWhile(end, [](char c) { return IsDecimal(c) || c == '.'; });
        if (end < text_.size() && (text_[end] == 'e' || text_[end] == 'E')) {
            ++end;
            if (end < text_.size() && (text_[end] == '-' || text_[end] == '+')) {
                ++end;
            }
        }
        end += LengthWhile(end, IsWordByte);
        return Take(WqlTokenKind::number, end - position_);
    }

    template <typename Predicate>
    std::size_t LengthWhile(std::size_t begin, Predicate isPart) const {
        std::size_t end = begin;
        while (end < text_.size() && isPart(text_[end])) {
            ++end;
        }
        return end - begin;
    }

    WqlToken Take(WqlTokenKind kind, std::size_t length) {
        WqlToken token{kind, std::string(text_.substr(position_, length)), position_ + 1};
        position_ += length;
        return token;
    }

    std::string_view text_;
    std::size_t position_ = 0;
};

}  // namespace

std::vector<WqlToken> SplitWql(std::string_view text) {
    return WqlLexer(text).Split();
}

bool IsWqlWord(std::string_view text) {
    return !text.empty() && !IsDecimal(text.front()) && std::ranges::all_of(text, IsWordByte);
}

}  // namespace qv::service
