#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "qvsata/cim/ObjectPath.h"

namespace qv::service {

/// Why a text is not an object path.
struct PathError {
    std::string reason;        ///< a phrase without a full stop
    std::size_t position = 0;  ///< bytes from the beginning of the text
};

/// Parses an object path. Server and namespace may use slashes of either kind; values are quoted
/// with " or '. Inside quotes \\ and \" (or \') are escapes, and a backslash before any other
/// character stands for itself. Blanks are allowed inside quotes only. Returns nothing for a text
/// that is not an object path, and then sets `error` if it is not null.
std::optional<ObjectPath> ParseObjectPath(std::string_view text, PathError* error = nullptr);

/// Returns the path of an instance; nothing for any other text. Quick for a text without "=", so
/// it suits texts of which few are paths.
std::optional<ObjectPath> ParseInstancePath(std::string_view text);

}  // namespace qv::service
