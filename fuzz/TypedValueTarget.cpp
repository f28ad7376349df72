#include <algorithm>
#include <array>
#include <limits>

#include "fuzz/Chooser.h"
#include "source/Text.h"
#include "source/TypedValue.h"

namespace qv::fuzz {
namespace {

// A second atoi: blanks, a sign, decimal digits; beyond 32 bits the nearest number.
std::int32_t PlainNumber(std::string_view text) {
    using Limits = std::numeric_limits<std::int32_t>;
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    std::int64_t number = 0;
    for (const char digit : text.substr(0, text.find_first_not_of("0123456789"))) {
        number = std::min<std::int64_t>(number * 10 + (digit - '0'), std::int64_t{1} << 32);
    }
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(isNegative ? -number : number, Limits::min(), Limits::max()));
}

std::vector<std::string> PlainPieces(std::string_view text) {
    std::vector<std::string> pieces;
    while (!text.empty()) {
        const std::size_t end = text.find(listSeparator);
        pieces.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return pieces;
        }
        text.remove_prefix(end + listSeparator.size());
        if (text.empty()) {
            pieces.emplace_back();
        }
    }
    return pieces;
}

TypedValue PlainValue(const PropertyEntry& entry) {
    const auto pieces = PlainPieces(entry.value);
    std::vector<std::int32_t> numbers(pieces.size());
    std::ranges::transform(pieces, numbers.begin(), PlainNumber);
    switch (static_cast<std::uint32_t>(entry.type)) {
        case 0:
        case 10:
        case 16:
            return entry.value;
        case 7:
            return static_cast<std::uint8_t>(PlainNumber(entry.value));
        case 8:
        case 9:
            return PlainNumber(entry.value);
        case 11:
            return ToUpper(entry.value) == "TRUE";
        case 14:
            return qv::Reference{entry.value};
        case 17:
        case 21:
            return pieces.empty() ? TypedValue{} : pieces;
        case 19:
            return numbers.empty() ? TypedValue{} : numbers;
        default:
            return {};
    }
}

}  // namespace

// The first byte chooses the type; the rest is the text.
void RunTypedValue(Bytes input) {
    constexpr std::array published{0, 7, 8, 9, 10, 11, 14, 16, 17, 19, 21};
    Chooser chooser(input);
    const std::size_t type = chooser.Below(24);
    const PropertyEntry entry{"Name", std::string(chooser.Rest()), static_cast<PropertyType>(type),
                              false};
    TypedValue value;
    Require(ToTypedValue(entry, value) ==
                (std::ranges::find(published, static_cast<int>(type)) != published.end()),
            "exactly the published types have values");
    Require(value == PlainValue(entry), "a text has the value that a plain reading finds");
}

}  // namespace qv::fuzz
