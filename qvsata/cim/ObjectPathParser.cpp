#include "qvsata/cim/ObjectPathParser.h"

#include <algorithm>
#include <set>
#include <utility>

#include "source/Text.h"

namespace qv::service {
namespace {

constexpr std::string_view slashes = "/\\";

bool IsSlash(char c) {
    return slashes.find(c) != std::string_view::npos;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Names may contain letters of any script: bytes above ASCII count as letters.
bool IsNameByte(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || IsDigit(c) || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool IsUnquotedValue(std::string_view text) {
    if (EqualsIgnoringCase(text, "TRUE") || EqualsIgnoringCase(text, "FALSE")) {
        return true;
    }
    const bool isSigned = text.starts_with('-') || text.starts_with('+');
    const std::string_view digits = text.substr(isSigned ? 1 : 0);
    return !digits.empty() && std::ranges::all_of(digits, IsDigit);
}

class PathParser {
public:
    explicit PathParser(std::string_view text) : text_(text) {}

    // Throws PathError.
    ObjectPath Parse() {
        ParsePrefix();
        path_.className = ParseName("a class name");
        if (AtEnd()) {
            return std::move(path_);
        }
        if (TakeIf('=')) {
            ParseShortForm();
        } else if (TakeIf('.')) {
            ParseKeys();
        } else {
            Fail("unexpected character after the class name");
        }
        return std::move(path_);
    }

private:
    // Server and namespace end with the first colon before any key.
    void ParsePrefix() {
        const std::size_t end = text_.find_first_of(":=\"'");
        if (end == std::string_view::npos || text_[end] != ':') {
            if (!AtEnd() && IsSlash(Peek())) {
                Fail("no class after the namespace");
            }
            return;
        }
        std::size_t leading = 0;
        while (leading < end && IsSlash(text_[leading])) {
            ++leading;
        }
        if (leading > 2 || (leading == 2 && text_[0] != text_[1])) {
            Fail("a server is introduced by two equal slashes");
        }
        position_ = leading;
        if (leading == 2) {
            path_.server = ParsePrefixPart(end);
            Expect(position_ < end, "no namespace after the server");
            ++position_;
        }
        path_.nameSpace = ParsePrefixPart(end);
        while (position_ < end) {
            ++position_;
            path_.nameSpace += '\\';
            path_.nameSpace += ParsePrefixPart(end);
        }
        position_ = end + 1;
    }

    std::string ParsePrefixPart(std::size_t end) {
        const std::size_t begin = position_;
        position_ = std::min(end, text_.find_first_of(slashes, begin));
        const std::string_view part = text_.substr(begin, position_ - begin);
        Expect(!part.empty(), "an empty name in server or namespace");
        const std::size_t blank = part.find_first_of(" \t\r\n");
        if (blank != std::string_view::npos) {
            position_ = begin + blank;
            Fail("a blank in server or namespace");
        }
        return std::string(part);
    }

    std::string ParseName(const std::string& what) {
        const std::size_t begin = position_;
        while (!AtEnd() && IsNameByte(Peek())) {
            ++position_;
        }
        if (position_ == begin || IsDigit(text_[begin])) {
            position_ = begin;
            Fail("expected " + what);
        }
        return std::string(text_.substr(begin, position_ - begin));
    }

    void ParseShortForm() {
        if (TakeIf('@')) {
            path_.singleton = true;
        } else {
            path_.keys.push_back(ParseValue({}));
        }
        Expect(AtEnd(), "unexpected character after the value");
    }

    void ParseKeys() {
        std::set<std::string> given;
        do {
            std::string name = ParseName("a key name");
            Expect(TakeIf('='), "expected = after the key name");
            Expect(given.insert(FoldCase(name)).second, "a key is given twice");
            path_.keys.push_back(ParseValue(std::move(name)));
        } while (TakeIf(','));
        Expect(AtEnd(), "expected , or the end after the value");
    }

    PathKey ParseValue(std::string name) {
        if (TakeIf('"')) {
            return {std::move(name), ParseQuoted('"'), true};
        }
        if (TakeIf('\'')) {
            return {std::move(name), ParseQuoted('\''), true};
        }
        const std::size_t length = text_.substr(position_).find(',');
        const std::string_view value = text_.substr(position_, length);
        Expect(IsUnquotedValue(value), "expected a quoted text, a number, TRUE or FALSE");
        position_ += value.size();
        return {std::move(name), std::string(value), false};
    }

    std::string ParseQuoted(char quote) {
        const std::size_t begin = position_ - 1;
        std::string value;
        while (!AtEnd() && Peek() != quote) {
            if (Peek() == '\\' && position_ + 1 < text_.size() &&
                (text_[position_ + 1] == '\\' || text_[position_ + 1] == '"' ||
                 text_[position_ + 1] == '\'')) {
                ++position_;
            }
            value += text_[position_++];
        }
        if (!TakeIf(quote)) {
            position_ = begin;
            Fail("the quote is not closed");
        }
        return value;
    }

    bool AtEnd() const { return position_ == text_.size(); }
    char Peek() const { return text_[position_]; }

    bool TakeIf(char c) {
        if (AtEnd() || Peek() != c) {
            return false;
        }
        ++position_;
        return true;
    }

    void Expect(bool condition, const char* reason) const {
        if (!condition) {
            Fail(reason);
        }
    }

    [[noreturn]] void Fail(std::string reason) const {
        throw PathError{std::move(reason), position_};
    }

    std::string_view text_;
    std::size_t position_ = 0;
    ObjectPath path_;
};

}  // namespace

std::optional<ObjectPath> ParseObjectPath(std::string_view text, PathError* error) {
    try {
        return PathParser(text).Parse();
    } catch (PathError& failure) {
        if (error != nullptr) {
            *error = std::move(failure);
        }
        return std::nullopt;
    }
}

std::optional<ObjectPath> ParseInstancePath(std::string_view text) {
    if (text.find('=') == std::string_view::npos) {
        return std::nullopt;
    }
    std::optional<ObjectPath> path = ParseObjectPath(text);
    return path && path->NamesInstance() ? std::move(path) : std::nullopt;
}

}  // namespace qv::service
