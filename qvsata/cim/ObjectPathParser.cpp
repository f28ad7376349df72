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

/// Reports errors by return value: most texts of a recording are not paths, and exceptions would be
/// slow.
class PathParser {
public:
    explicit PathParser(std::string_view text) : text_(text) {}

    /// Returns whether the text is a path.
    bool Parse() {
        if (!ParsePrefix() || !ParseName(path_.className, "expected a class name")) {
            return false;
        }
        if (AtEnd()) {
            return true;
        }
        if (TakeIf('=')) {
            return ParseShortForm();
        }
        return TakeIf('.') ? ParseKeys() : Fail("unexpected character after the class name");
    }

    ObjectPath Take() { return std::move(path_); }
    PathError Error() const { return {reason_, position_}; }

private:
    // Server and namespace end with the first colon before any key.
    bool ParsePrefix() {
        const std::size_t end = text_.find_first_of(":=\"'");
        if (end == std::string_view::npos || text_[end] != ':') {
            return AtEnd() || !IsSlash(Peek()) || Fail("no class after the namespace");
        }
        std::size_t leading = 0;
        while (leading < end && IsSlash(text_[leading])) {
            ++leading;
        }
        if (leading > 2 || (leading == 2 && text_[0] != text_[1])) {
            return Fail("a server is introduced by two equal slashes");
        }
        position_ = leading;
        if (leading == 2) {
            if (!ParsePrefixPart(path_.server, end)) {
                return false;
            }
            if (position_ == end) {
                return Fail("no namespace after the server");
            }
            ++position_;
        }
        if (!ParsePrefixPart(path_.nameSpace, end)) {
            return false;
        }
        while (position_ < end) {
            ++position_;
            path_.nameSpace += '\\';
            if (!ParsePrefixPart(path_.nameSpace, end)) {
                return false;
            }
        }
        position_ = end + 1;
        return true;
    }

    bool ParsePrefixPart(std::string& target, std::size_t end) {
        const std::size_t begin = position_;
        position_ = std::min(end, text_.find_first_of(slashes, begin));
        const std::string_view part = text_.substr(begin, position_ - begin);
        if (part.empty()) {
            return Fail("an empty name in server or namespace");
        }
        const std::size_t blank = part.find_first_of(" \t\r\n");
        if (blank != std::string_view::npos) {
            position_ = begin + blank;
            return Fail("a blank in server or namespace");
        }
        target += part;
        return true;
    }

    bool ParseName(std::string& name, const char* expected) {
        const std::size_t begin = position_;
        while (!AtEnd() && IsNameByte(Peek())) {
            ++position_;
        }
        if (position_ == begin || IsDigit(text_[begin])) {
            position_ = begin;
            return Fail(expected);
        }
        name = text_.substr(begin, position_ - begin);
        return true;
    }

    bool ParseShortForm() {
        if (TakeIf('@')) {
            path_.singleton = true;
        } else if (!ParseValue(path_.keys.emplace_back())) {
            return false;
        }
        return AtEnd() || Fail("unexpected character after the value");
    }

    bool ParseKeys() {
        std::set<std::string> given;
        do {
            PathKey& key = path_.keys.emplace_back();
            if (!ParseName(key.name, "expected a key name")) {
                return false;
            }
            if (!TakeIf('=')) {
                return Fail("expected = after the key name");
            }
            if (!given.insert(FoldCase(key.name)).second) {
                return Fail("a key is given twice");
            }
            if (!ParseValue(key)) {
                return false;
            }
        } while (TakeIf(','));
        return AtEnd() || Fail("expected , or the end after the value");
    }

    bool ParseValue(PathKey& key) {
        for (const char quote : {'"', '\''}) {
            if (TakeIf(quote)) {
                return ParseQuoted(key.value, quote);
            }
        }
        key.quoted = false;
        const std::size_t length = text_.substr(position_).find(',');
        const std::string_view value = text_.substr(position_, length);
        if (!IsUnquotedValue(value)) {
            return Fail("expected a quoted text, a number, TRUE or FALSE");
        }
        position_ += value.size();
        key.value = value;
        return true;
    }

    bool ParseQuoted(std::string& value, char quote) {
        const std::size_t begin = position_ - 1;
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
            return Fail("the quote is not closed");
        }
        return true;
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

    /// Returns false.
    bool Fail(const char* reason) {
        reason_ = reason;
        return false;
    }

    std::string_view text_;
    std::size_t position_ = 0;
    ObjectPath path_;
    const char* reason_ = "";
};

}  // namespace

std::optional<ObjectPath> ParseObjectPath(std::string_view text, PathError* error) {
    PathParser parser(text);
    if (parser.Parse()) {
        return parser.Take();
    }
    if (error != nullptr) {
        *error = parser.Error();
    }
    return std::nullopt;
}

std::optional<ObjectPath> ParseInstancePath(std::string_view text) {
    if (text.find('=') == std::string_view::npos) {
        return std::nullopt;
    }
    std::optional<ObjectPath> path = ParseObjectPath(text);
    return path && path->NamesInstance() ? std::move(path) : std::nullopt;
}

}  // namespace qv::service
