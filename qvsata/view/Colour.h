#pragma once

namespace qv::view {

/// Whether output is coloured: only on a terminal, and not where the environment variable NO_COLOR
/// is set to something. `noColour` is its value, null where it is not set.
bool WantsColour(bool isTerminal, const char* noColour);

}  // namespace qv::view
