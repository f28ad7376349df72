#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qv::service {

/// The parts of an object path, each in the text's own spelling.
struct PathParts {
    std::string server;     ///< empty if the text has none
    std::string nameSpace;  ///< with backslashes; empty if the text has none
    std::string relative;   ///< class and keys; letter case, key order, quotes and escapes are kept
    std::string className;  ///< empty if the text names no class
};

/// Splits a path as the management service's path parser does; returns nothing for a text that is
/// not a path.
std::optional<PathParts> CutPath(std::string_view text);

}  // namespace qv::service
