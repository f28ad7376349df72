#include "qvsata/cim/Utf8.h"

#include <cstddef>

namespace qv::service {
namespace {

constexpr bool isUtf16 = sizeof(wchar_t) == 2;
constexpr char32_t firstPair = 0x10000;  // the first character that is two of UTF-16

std::size_t LengthOf(unsigned char lead) {
    return lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

void AppendWide(std::wstring& wide, char32_t character) {
    if (isUtf16 && character >= firstPair) {
        wide += static_cast<wchar_t>(0xD800 + ((character - firstPair) >> 10U));
        character = 0xDC00 + ((character - firstPair) & 0x3FFU);
    }
    wide += static_cast<wchar_t>(character);
}

void AppendUtf8(std::string& utf8, char32_t character) {
    if (character < 0x80) {
        utf8 += static_cast<char>(character);
        return;
    }
    const unsigned rest = character < 0x800 ? 1 : character < firstPair ? 2 : 3;
    const unsigned marks[] = {0, 0xC0, 0xE0, 0xF0};
    utf8 += static_cast<char>(marks[rest] | (character >> (6 * rest)));
    for (unsigned left = rest; left-- > 0;) {
        utf8 += static_cast<char>(0x80U | ((character >> (6 * left)) & 0x3FU));
    }
}

}  // namespace

std::wstring ToWide(std::string_view utf8) {
    std::wstring wide;
    for (std::size_t next = 0; next < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[next]);
        const std::size_t length = LengthOf(lead);
        char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
        for (const char rest : utf8.substr(next + 1, length - 1)) {
            character = (character << 6U) | (static_cast<unsigned char>(rest) & 0x3FU);
        }
        AppendWide(wide, character);
        next += length;
    }
    return wide;
}

std::string ToUtf8(std::wstring_view wide) {
    std::string utf8;
    char32_t high = 0;
    for (const wchar_t unit : wide) {
        const auto value = static_cast<char32_t>(unit);
        if (isUtf16 && value >= 0xD800 && value < 0xDC00) {
            high = value;
            continue;
        }
        AppendUtf8(utf8,
                   high == 0 ? value : firstPair + ((high - 0xD800) << 10U) + (value - 0xDC00));
        high = 0;
    }
    return utf8;
}

std::string Utf8OfPath(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::optional<std::string> Utf8OfUtf16(std::u16string_view utf16) {
    const auto isIn = [](char32_t unit, char32_t first) {
        constexpr char32_t halves = 0x400;
        return unit >= first && unit < first + halves;
    };
    constexpr char32_t high = 0xD800;
    constexpr char32_t low = 0xDC00;
    std::string utf8;
    for (std::size_t next = 0; next < utf16.size(); ++next) {
        char32_t character = utf16[next];
        if (isIn(character, high) && next + 1 < utf16.size() && isIn(utf16[next + 1], low)) {
            ++next;
            character = firstPair + ((character - high) << 10U) + (utf16[next] - low);
        } else if (isIn(character, high) || isIn(character, low)) {
            return std::nullopt;
        }
        AppendUtf8(utf8, character);
    }
    return utf8;
}

}  // namespace qv::service
