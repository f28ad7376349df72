#include "qvsata/cim/Characters.h"

#include <array>
#include <bit>

#include "platform/ControlCharacters.h"

namespace qv::service {
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
    return !character.code || platform::ControlsText(*character.code);
}

}  // namespace qv::service
