#include "qvsata/view/SerialNumber.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "qvsata/view/text/Columns.h"

namespace qv::view {
namespace {

/// Two characters of two digits each; fewer would take plain numbers for encoded texts.
constexpr std::size_t digitsOfPair = 4;
constexpr std::size_t shortestEncoded = 16;

/// Returns the printable character with a hexadecimal code; nothing for any other text.
std::optional<char> CharacterOf(std::string_view digits) {
    unsigned code = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
    const bool isPrintable = code >= 0x20 && code < 0x7F;
    return error == std::errc() && end == digits.data() + digits.size() && isPrintable
               ? std::optional(static_cast<char>(code))
               : std::nullopt;
}

bool HasInnerBlank(std::string_view text) {
    return Trimmed(text).find(' ') != std::string_view::npos;
}

}  // namespace

std::optional<std::string> DecodedSerialNumber(std::string_view raw) {
    raw = Trimmed(raw);
    if (raw.size() < shortestEncoded || raw.size() % digitsOfPair != 0) {
        return std::nullopt;
    }
    std::string text;
    std::string plain;
    for (std::size_t place = 0; place < raw.size(); place += digitsOfPair) {
        const auto second = CharacterOf(raw.substr(place, 2));
        const auto first = CharacterOf(raw.substr(place + 2, 2));
        if (!first || !second) {
            return std::nullopt;
        }
        text += {*first, *second};
        plain += {*second, *first};
    }
    return std::string(HasInnerBlank(text) && !HasInnerBlank(plain) ? Trimmed(plain)
                                                                    : Trimmed(text));
}

std::string SerialNumberText(std::string_view raw) {
    const std::string trimmed(Trimmed(raw));
    const std::optional<std::string> decoded = DecodedSerialNumber(trimmed);
    return decoded ? trimmed + " (" + *decoded + ")" : OrDash(trimmed);
}

Span SerialNumberSpan(std::string_view label, std::string_view raw, bool isRead) {
    const bool isUnknown = !isRead && Trimmed(raw).empty();
    return {std::string(label) + (isUnknown ? "not readable" : SerialNumberText(raw)),
            isUnknown ? Style::caution : Style::plain};
}

}  // namespace qv::view
