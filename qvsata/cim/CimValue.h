#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace qv::service {

/// CIM types with their numbers in the management service (CIMTYPE_ENUMERATION of wbemcli.h). An
/// array is an element type plus a separate flag.
enum class CimType : std::uint16_t {
    sint16 = 2,
    sint32 = 3,
    real32 = 4,
    real64 = 5,
    string = 8,
    boolean = 11,
    object = 13,
    sint8 = 16,
    uint8 = 17,
    uint16 = 18,
    uint32 = 19,
    sint64 = 20,
    uint64 = 21,
    datetime = 101,
    reference = 102,
    char16 = 103,
};

/// A value of a property. Text is UTF-8. Whole numbers of up to 32 bits are std::int64_t; 64-bit
/// numbers, dates and references are text, as the management service delivers them. std::monostate
/// means no value (null).
using CimValue =
    std::variant<std::monostate, bool, std::int64_t, double, std::string, std::vector<bool>,
                 std::vector<std::int64_t>, std::vector<double>, std::vector<std::string>>;

/// Whether a value is an array.
constexpr bool IsArray(const CimValue& value) {
    // The arrays are the last four alternatives.
    static_assert(std::variant_size_v<CimValue> == 9);
    return value.index() >= 5;
}

}  // namespace qv::service
