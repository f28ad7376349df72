#include "qvsata/cim/Characters.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace qv::service {
namespace {

using Range = std::pair<char32_t, char32_t>;

// In ascending order.
constexpr std::array controls{
    Range{0x00, 0x1F},     Range{0x7F, 0x9F},     Range{0xAD, 0xAD},     Range{0x061C, 0x061C},
    Range{0x180E, 0x180E}, Range{0x200B, 0x200B}, Range{0x200E, 0x200F}, Range{0x2028, 0x202E},
    Range{0x2060, 0x2069}, Range{0xFEFF, 0xFEFF}, Range{0xFFF9, 0xFFFB}, Range{0xE0000, 0xE007F}};

}  // namespace

Character FirstCharacter(std::string_view text) {
    // The smallest code of each length: a longer form of a smaller code is not UTF-8.
    constexpr std::array<char32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    constexpr int longest = 4;
    const auto byte = [&text](std::size_t place) -> unsigned char {
        return static_cast<unsigned char>(text[place]);
    };
    const int ones = std::countl_one(byte(0));
    if (ones == 0) {
        return {text.substr(0, 1), byte(0)};
    }
    const auto length = static_cast<std::size_t>(ones);
    if (ones == 1 || ones > longest || text.size() < length) {
        return {text.substr(0, 1), std::nullopt};
    }
    char32_t code = byte(0) & (0xFFU >> (length + 1));
    for (std::size_t place = 1; place < length; ++place) {
        if ((byte(place) & 0xC0U) != 0x80) {
            return {text.substr(0, 1), std::nullopt};
        }
        code = (code << 6U) | (byte(place) & 0x3FU);
    }
    constexpr char32_t last = 0x10FFFF;
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < smallest.at(length) || code > last || isSurrogate) {
        return {text.substr(0, 1), std::nullopt};
    }
    return {text.substr(0, length), code};
}

bool ControlsText(const Character& character) {
    if (!character.code) {
        return true;
    }
    const auto* const range =
        std::ranges::lower_bound(controls, *character.code, {}, &Range::second);
    return range != controls.end() && range->first <= *character.code;
}

}  // namespace qv::service
