#pragma once

#include <cstdint>
#include <string_view>

namespace qv {

/// How the keys of two endpoints are matched: A is the first one's key, B the second one's.
/// Beginnings, ends and whole texts are compared ignoring case; contained texts are found with
/// their exact case.
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

/// Returns whether the rule holds for the keys; false for a rule without a name above.
bool MatchKeyValues(std::string_view first, std::string_view second, MatchRule rule);

}  // namespace qv
