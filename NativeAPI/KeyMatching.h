#pragma once

#include <cstdint>
#include <string_view>

namespace qv {

/// When two endpoints of an association belong together, by a key of each: A the first one's, B the
/// second one's. Beginnings, ends and whole texts are compared without regard to case; contained
/// texts are sought letter case included.
enum class MatchRule : std::uint32_t {
    always = 0,
    equal = 1,              ///< A equals B
    firstBeginsWith = 2,    ///< A begins with B
    firstEndsWith = 3,      ///< A ends with B
    secondBeginsWith = 4,   ///< B begins with A
    secondEndsWith = 5,     ///< B ends with A
    firstContains = 6,      ///< A contains B
    secondContains = 7,     ///< B contains A
    firstListsSecond = 8,   ///< an element of the list A equals B
    secondListsFirst = 9,   ///< an element of the list B equals A
    firstContainsToo = 10,  ///< the same as firstContains
};

/// Whether the rule holds for the keys; never for a rule that has no name above.
bool MatchKeyValues(std::string_view first, std::string_view second, MatchRule rule);

}  // namespace qv
