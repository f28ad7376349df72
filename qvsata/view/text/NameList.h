#pragma once

#include <cstddef>
#include <ranges>
#include <string>

namespace qv::view {

/// The number of names that NameList writes.
inline constexpr std::size_t mostListedNames = 8;

/// Returns the names of things as a sentence lists them: "#0", "#0 and #1", "#0, #1 and #2". Of
/// more than `mostListedNames` things it names the first ones and counts the others ("... and 12
/// more"), so that a text about each of many things does not name all of them each time.
/// @param nameOf returns the name of a thing
template <std::ranges::forward_range Things, typename NameOf>
std::string NameList(const Things& things, NameOf nameOf) {
    const std::size_t count = std::ranges::size(things);
    const std::size_t unlisted = count > mostListedNames ? count - mostListedNames : 0;
    const std::size_t listed = count - unlisted;
    std::string list;
    std::size_t number = 0;
    for (const auto& thing : things | std::views::take(listed)) {
        if (number > 0) {
            list += number + 1 == count ? " and " : ", ";
        }
        list += nameOf(thing);
        ++number;
    }
    return unlisted == 0 ? list : list + " and " + std::to_string(unlisted) + " more";
}

}  // namespace qv::view
