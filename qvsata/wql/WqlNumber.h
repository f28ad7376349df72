#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string_view>
#include <variant>

namespace qv::service {

/// A number of a query or of a property. Whole numbers of 64 bits are exact: std::uint64_t unless
/// negative.
using WqlNumber = std::variant<std::int64_t, std::uint64_t, double>;

/// Parses a text that is a whole or decimal number and nothing else; a whole number beyond 64 bits
/// becomes the nearest double. Returns nothing for any other text.
std::optional<WqlNumber> ParseNumber(std::string_view text);

/// Compares by value, without rounding either side.
std::partial_ordering CompareNumbers(const WqlNumber& left, const WqlNumber& right);

}  // namespace qv::service
