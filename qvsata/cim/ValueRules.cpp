#include "qvsata/cim/ValueRules.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string_view>

namespace qv::service {
namespace {

template <typename Number>
bool IsDecimal(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size();
}

/// yyyymmddHHMMSS.mmmmmmsUUU, or an interval ddddddddHHMMSS.mmmmmm:000; an asterisk is an unknown
/// digit.
bool IsDate(std::string_view text) {
    constexpr std::string_view shape = "dddddddddddddd.ddddddsddd";
    return std::ranges::equal(text, shape, [](char character, char kind) {
        switch (kind) {
            case 'd':
                return (character >= '0' && character <= '9') || character == '*';
            case 's':
                return character == '+' || character == '-' || character == ':';
            default:
                return character == kind;
        }
    });
}

bool FitsNumber(std::int64_t number, CimType type) {
    switch (type) {
        case CimType::uint16:
            return number >= 0 && number <= std::numeric_limits<std::uint16_t>::max();
        case CimType::sint8:
            return number >= std::numeric_limits<std::int8_t>::min() &&
                   number <= std::numeric_limits<std::int8_t>::max();
        default:
            return true;
    }
}

bool FitsText(std::string_view text, CimType type) {
    switch (type) {
        case CimType::sint64:
            return IsDecimal<std::int64_t>(text);
        case CimType::uint64:
            return IsDecimal<std::uint64_t>(text);
        case CimType::datetime:
            return IsDate(text);
        default:
            return true;
    }
}

}  // namespace

bool IsValueOf(const CimValue& value, CimType type) {
    const auto number = [type](std::int64_t one) { return FitsNumber(one, type); };
    const auto text = [type](const std::string& one) { return FitsText(one, type); };
    if (const auto* one = std::get_if<std::int64_t>(&value)) {
        return number(*one);
    }
    if (const auto* one = std::get_if<std::string>(&value)) {
        return text(*one);
    }
    if (const auto* several = std::get_if<std::vector<std::int64_t>>(&value)) {
        return std::ranges::all_of(*several, number);
    }
    if (const auto* several = std::get_if<std::vector<std::string>>(&value)) {
        return std::ranges::all_of(*several, text);
    }
    return true;
}

CimValue FromVariantContent(CimValue value, CimType type) {
    if (type != CimType::uint32) {
        return value;
    }
    const auto restoreSign = [](std::int64_t& one) { one = static_cast<std::uint32_t>(one); };
    if (auto* one = std::get_if<std::int64_t>(&value)) {
        restoreSign(*one);
    } else if (auto* several = std::get_if<std::vector<std::int64_t>>(&value)) {
        std::ranges::for_each(*several, restoreSign);
    }
    return value;
}

}  // namespace qv::service
