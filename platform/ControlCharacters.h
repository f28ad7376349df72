#pragma once

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <utility>

namespace qv::platform {

/// Returns whether a character would control a terminal, end a line, turn the direction of writing
/// or be invisible. Texts of devices are shown and logged with the codes of such characters.
inline bool ControlsText(char32_t code) {
    using Range = std::pair<char32_t, char32_t>;
    // In ascending order.
    static constexpr std::array controls{
        Range{0x00, 0x1F},     Range{0x7F, 0x9F},     Range{0xAD, 0xAD},
        Range{0x061C, 0x061C}, Range{0x180E, 0x180E}, Range{0x200B, 0x200B},
        Range{0x200E, 0x200F}, Range{0x2028, 0x202E}, Range{0x2060, 0x2069},
        Range{0xFEFF, 0xFEFF}, Range{0xFFF9, 0xFFFB}, Range{0xE0000, 0xE007F}};
    const auto* const range = std::ranges::lower_bound(controls, code, {}, &Range::second);
    return range != controls.end() && range->first <= code;
}

/// Returns the code of a character as a text: "\x1b" or "\u202e".
inline std::string CodeText(char32_t code) {
    constexpr char32_t firstOfFourDigits = 0x100;
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), code < firstOfFourDigits ? "\\x%02x" : "\\u%04x",
                  static_cast<unsigned>(code));
    return text.data();
}

}  // namespace qv::platform
