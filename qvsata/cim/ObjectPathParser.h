#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "qvsata/cim/ObjectPath.h"

namespace qv::service {

/// Why a text is no object path.
struct PathError {
    std::string reason;        ///< a phrase without a full stop
    std::size_t position = 0;  ///< bytes from the beginning of the text
};

/// Takes an object path apart. Slashes of server and namespace may be of either kind, values
/// quoted with " or '; inside quotes \\ and \" (or \') are escapes, and a backslash before anything
/// else stands for itself. Blanks are allowed inside quotes only. A text that is no object path
/// gives nothing, and the reason in `error` when there is one.
std::optional<ObjectPath> ParseObjectPath(std::string_view text, PathError* error = nullptr);

}  // namespace qv::service
