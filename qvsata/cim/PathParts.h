#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qv::service {

/// An object path cut into its parts, each in the text's own spelling.
struct PathParts {
    std::string server;     ///< empty when the text names none
    std::string nameSpace;  ///< with backslashes; empty when the text names none
    std::string relative;   ///< from the class on; letter case, key order, quotes and escapes kept
    std::string className;  ///< empty when the text names no class
};

/// Cuts a path as the management service's path parser does; nothing for a text that is no path.
std::optional<PathParts> CutPath(std::string_view text);

}  // namespace qv::service
