#include "qvsata/view/text/Characters.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/ControlCharacters.h"

namespace qv::view {
namespace {

using Range = std::pair<char32_t, char32_t>;

// In ascending order.
constexpr std::array combining{Range{0x0300, 0x036F}, Range{0x0483, 0x0489}, Range{0x0591, 0x05BD},
                               Range{0x064B, 0x065F}, Range{0x1AB0, 0x1AFF}, Range{0x1DC0, 0x1DFF},
                               Range{0x200C, 0x200D}, Range{0x20D0, 0x20FF}, Range{0x3099, 0x309A},
                               Range{0xFE00, 0xFE0F}, Range{0xFE20, 0xFE2F}};
constexpr std::array wide{Range{0x1100, 0x115F},   Range{0x2E80, 0x303E},   Range{0x3041, 0x33FF},
                          Range{0x3400, 0x4DBF},   Range{0x4E00, 0x9FFF},   Range{0xA000, 0xA4CF},
                          Range{0xA960, 0xA97C},   Range{0xAC00, 0xD7A3},   Range{0xF900, 0xFAFF},
                          Range{0xFE30, 0xFE6F},   Range{0xFF00, 0xFF60},   Range{0xFFE0, 0xFFE6},
                          Range{0x1F300, 0x1F64F}, Range{0x1F680, 0x1F6FF}, Range{0x1F900, 0x1F9FF},
                          Range{0x20000, 0x3FFFD}};

template <typename Ranges>
bool IsIn(const Ranges& ranges, char32_t code) {
    const auto* const range = std::ranges::lower_bound(ranges, code, {}, &Range::second);
    return range != ranges.end() && range->first <= code;
}

std::string Escaped(const Character& character) {
    return platform::CodeText(
        character.code.value_or(static_cast<unsigned char>(character.bytes.front())));
}

bool IsInsideCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

}  // namespace

std::size_t ColumnsOf(const Character& character) {
    if (!character.code) {
        return 1;
    }
    if (IsIn(combining, *character.code)) {
        return 0;
    }
    return IsIn(wide, *character.code) ? 2 : 1;
}

std::string Printable(std::string_view text) {
    std::string printable;
    while (!text.empty()) {
        const Character character = FirstCharacter(text);
        printable += ControlsText(character) ? Escaped(character) : std::string(character.bytes);
        text.remove_prefix(character.bytes.size());
    }
    return printable;
}

std::string_view Beginning(std::string_view text, std::size_t mostBytes) {
    if (text.size() <= mostBytes) {
        return text;
    }
    std::size_t length = mostBytes;
    while (length != 0 && IsInsideCharacter(text[length])) {
        --length;
    }
    return text.substr(0, length);
}

std::string Shortened(std::string_view text, const TextLimits& limits) {
    if (text.size() <= limits.whole) {
        return std::string(text);
    }
    std::string_view end = text.substr(text.size() - limits.end);
    while (!end.empty() && IsInsideCharacter(end.front())) {
        end.remove_prefix(1);
    }
    return std::string(Beginning(text, limits.beginning)).append(" ... ").append(end);
}

}  // namespace qv::view
