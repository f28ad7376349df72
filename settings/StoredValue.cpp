#include "settings/StoredValue.h"

#include <cstddef>
#include <string_view>

namespace qv {
namespace {

constexpr std::uint32_t regSz = 1;
constexpr std::uint32_t regExpandSz = 2;
constexpr std::uint32_t regDword = 4;

/// Returns the number that bytes hold, the lowest byte first.
std::uint32_t Assembled(std::string_view bytes) {
    std::uint32_t number = 0;
    for (std::size_t index = bytes.size(); index-- > 0;) {
        number = number << 8 | static_cast<unsigned char>(bytes[index]);
    }
    return number;
}

}  // namespace

std::optional<std::wstring> TextOf(const StoredValue& value) {
    if (value.type != regSz && value.type != regExpandSz) {
        return std::nullopt;
    }
    constexpr std::size_t unitSize = 2;
    const std::string_view bytes = value.bytes;
    std::wstring text;
    for (std::size_t at = 0; at + unitSize <= bytes.size(); at += unitSize) {
        const auto unit = static_cast<wchar_t>(Assembled(bytes.substr(at, unitSize)));
        if (unit == L'\0') {
            break;
        }
        text += unit;
    }
    return text;
}

std::optional<std::uint32_t> NumberOf(const StoredValue& value) {
    if (value.type != regDword || value.bytes.size() != sizeof(std::uint32_t)) {
        return std::nullopt;
    }
    return Assembled(value.bytes);
}

}  // namespace qv
