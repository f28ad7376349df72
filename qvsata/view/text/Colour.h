#pragma once

namespace qv::view {

/// Returns whether output is coloured: on a terminal, unless the environment variable NO_COLOR is
/// set and not empty. `noColour` is its value, null if it is not set.
bool WantsColour(bool isTerminal, const char* noColour);

}  // namespace qv::view
