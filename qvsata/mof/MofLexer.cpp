#include "qvsata/mof/MofLexer.h"

#include <charconv>
#include <optional>

#include "qvsata/cim/Characters.h"
#include "qvsata/cim/Utf8.h"

namespace qv::service {
namespace {

constexpr std::string_view symbols = "{}[]();,:=";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsNameStart(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

bool IsNamePart(char c) {
    return IsNameStart(c) || IsDigit(c);
}

constexpr bool IsHighHalf(char16_t codeUnit) {
    return codeUnit >= 0xD800 && codeUnit < 0xDC00;
}

/// Returns the whole text as one number; nothing if it is not one or is too large.
std::optional<std::uint64_t> WholeNumber(std::string_view digits, int base) {
    std::uint64_t value = 0;
    const char* const end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, value, base);
    if (result.ec != std::errc() || result.ptr != end) {
        return std::nullopt;
    }
    return value;
}

std::optional<std::uint64_t> ParseInteger(std::string_view text) {
    if (text.starts_with("0x") || text.starts_with("0X")) {
        return WholeNumber(text.substr(2), 16);
    }
    if (text.ends_with('b') || text.ends_with('B')) {
        return WholeNumber(text.substr(0, text.size() - 1), 2);
    }
    return WholeNumber(text, text.size() > 1 && text.front() == '0' ? 8 : 10);
}

class Lexer {
public:
    Lexer(std::string_view text, std::string_view fileName) : text_(text), fileName_(fileName) {
        if (text_.starts_with(byteOrderMark)) {
            text_.remove_prefix(byteOrderMark.size());
        }
    }

    std::vector<MofToken> Tokenize() {
        std::vector<MofToken> tokens;
        do {
            SkipBlanksAndComments();
            tokens.push_back(Next());
        } while (tokens.back().kind != MofTokenKind::end);
        return tokens;
    }

private:
    char Peek(std::size_t ahead = 0) const {
        return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0';
    }

    bool AtEnd() const { return at_ >= text_.size(); }

    char Take() {
        if (at_ == nextCharacter_) {
            const Character character = FirstCharacter(text_.substr(at_));
            if (!character.code) {
                throw MofError(fileName_, here_, "not UTF-8");
            }
            nextCharacter_ += character.bytes.size();
        }
        const char taken = text_[at_++];
        if (taken == '\n') {
            ++here_.line;
            here_.column = 1;
        } else {
            ++here_.column;
        }
        return taken;
    }

    void SkipBlanksAndComments() {
        while (!AtEnd()) {
            if (Peek() == ' ' || Peek() == '\t' || Peek() == '\r' || Peek() == '\n') {
                Take();
            } else if (Peek() == '/' && Peek(1) == '/') {
                while (!AtEnd() && Peek() != '\n') {
                    Take();
                }
            } else if (Peek() == '/' && Peek(1) == '*') {
                SkipBlockComment();
            } else {
                return;
            }
        }
    }

    void SkipBlockComment() {
        const MofPosition start = here_;
        Take();
        Take();
        while (!(Peek() == '*' && Peek(1) == '/')) {
            if (AtEnd()) {
                throw MofError(fileName_, start, "comment without end");
            }
            Take();
        }
        Take();
        Take();
    }

    MofToken Next() {
        MofToken token;
        token.position = here_;
        const char first = Peek();
        if (AtEnd()) {
            return token;
        }
        if (IsNameStart(first)) {
            token.kind = MofTokenKind::name;
            token.text = TakeName();
        } else if (first == '$' && IsNameStart(Peek(1))) {
            Take();
            token.kind = MofTokenKind::alias;
            token.text = TakeName();
        } else if (first == '"') {
            token.kind = MofTokenKind::text;
            token.text = TakeQuoted('"', "text without closing quote");
        } else if (first == '\'') {
            ReadCharacter(token);
        } else if (IsDigit(first) || ((first == '-' || first == '+') && IsDigit(Peek(1)))) {
            ReadNumber(token);
        } else if (symbols.find(first) != std::string_view::npos) {
            token.kind = MofTokenKind::symbol;
            token.text = Take();
        } else if (first == '#') {
            ReadPragma(token);
        } else {
            throw MofError(fileName_, here_, "unexpected character");
        }
        return token;
    }

    std::string TakeName() {
        std::string name;
        while (IsNamePart(Peek())) {
            name += Take();
        }
        return name;
    }

    void ReadPragma(MofToken& token) {
        Take();
        if (TakeName() != "pragma") {
            throw MofError(fileName_, token.position, "only #pragma may begin with #");
        }
        token.kind = MofTokenKind::pragma;
    }

    void ReadCharacter(MofToken& token) {
        token.kind = MofTokenKind::character;
        token.text = TakeQuoted('\'', "character without closing quote");
        if (token.text.size() != 1) {
            throw MofError(fileName_, token.position, "one character expected between the quotes");
        }
        token.magnitude = static_cast<unsigned char>(token.text.front());
    }

    void ReadNumber(MofToken& token) {
        token.negative = Peek() == '-';
        if (!IsDigit(Peek())) {
            Take();
        }
        bool isReal = false;
        char last = '0';
        while (IsNamePart(Peek()) || Peek() == '.' ||
               (isReal && (last == 'e' || last == 'E') && (Peek() == '-' || Peek() == '+'))) {
            last = Take();
            isReal = isReal || last == '.';
            token.text += last;
        }
        if (isReal) {
            token.kind = MofTokenKind::real;
            ReadReal(token);
            return;
        }
        token.kind = MofTokenKind::integer;
        const auto magnitude = ParseInteger(token.text);
        if (!magnitude) {
            throw MofError(fileName_, token.position, token.text + " is no number of 64 bits");
        }
        token.magnitude = *magnitude;
    }

    void ReadReal(MofToken& token) const {
        const char* const textEnd = token.text.data() + token.text.size();
        const auto [end, error] = std::from_chars(token.text.data(), textEnd, token.real);
        if (error != std::errc() || end != textEnd) {
            throw MofError(fileName_, token.position, token.text + " is no number of 64 bits");
        }
        token.real = token.negative ? -token.real : token.real;
    }

    std::string TakeQuoted(char quote, const char* unclosed) {
        const MofPosition start = here_;
        std::string text;
        Take();
        while (Peek() != quote || AtEnd()) {
            if (AtEnd() || Peek() == '\n') {
                throw MofError(fileName_, start, unclosed);
            }
            if (Peek() == '\\') {
                TakeEscape(text);
            } else {
                text += Take();
            }
        }
        Take();
        return text;
    }

    void TakeEscape(std::string& text) {
        constexpr std::string_view letters = "btnfr\"'\\";
        constexpr std::string_view meanings = "\b\t\n\f\r\"'\\";
        const MofPosition start = here_;
        Take();
        if (Peek() == 'x' || Peek() == 'X') {
            TakeCode(text, start);
            return;
        }
        const std::size_t which = letters.find(Peek());
        if (AtEnd() || which == std::string_view::npos) {
            throw MofError(fileName_, start, "unknown escape");
        }
        Take();
        text += meanings[which];
    }

    /// Takes the code of a character, or those of its two halves in UTF-16, from the "x" on.
    void TakeCode(std::string& text, MofPosition start) {
        std::u16string units(1, TakeHexadecimal(start));
        if (IsHighHalf(units.front()) && Peek() == '\\' && (Peek(1) == 'x' || Peek(1) == 'X')) {
            Take();
            units += TakeHexadecimal(start);
        }
        const std::optional<std::string> character = Utf8OfUtf16(units);
        if (!character) {
            throw MofError(fileName_, start, "half of a character");
        }
        text += *character;
    }

    char16_t TakeHexadecimal(MofPosition start) {
        std::string digits;
        Take();
        while (digits.size() < 4 &&
               std::string_view("0123456789abcdefABCDEF").find(Peek()) != std::string_view::npos) {
            digits += Take();
        }
        const auto value = WholeNumber(digits, 16);
        if (!value) {
            throw MofError(fileName_, start, "unknown escape");
        }
        return static_cast<char16_t>(*value);
    }

    std::string_view text_;
    std::string_view fileName_;
    std::size_t at_ = 0;
    std::size_t nextCharacter_ = 0;  ///< where the character begins that follows the last one taken
    MofPosition here_;
};

}  // namespace

std::vector<MofToken> TokenizeMof(std::string_view text, std::string_view fileName) {
    return Lexer(text, fileName).Tokenize();
}

}  // namespace qv::service
