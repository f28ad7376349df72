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
    std::string list;
    std::size_t listed = 0;
    for (const auto& thing : things) {
        if (listed == mostListedNames) {
            return list + " and " + std::to_string(count - listed) + " more";
        }
        if (listed > 0) {
            list += listed + 1 == count ? " and " : ", ";
        }
        list += nameOf(thing);
        ++listed;
    }
    return list;
}

}  // namespace qv::view
