#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

#include "qvsata/mof/MofStatus.h"

namespace qv::service {

/// A place in a MOF text: line and column (in bytes), counted from 1.
struct MofPosition {
    std::size_t line = 1;
    std::size_t column = 1;
};

/// An error in a MOF file. what() is one line, `file:line:column: reason`, followed by ` (name
/// code)` if the documentation names the status with which the real service or compiler ends.
/// Control characters, of a text that the reason quotes, are codes: `\x0a`.
class MofError : public std::runtime_error {
public:
    /// The error of the whole file: `file: reason`.
    MofError(std::string_view fileName, std::string_view what);

    MofError(std::string_view fileName, MofPosition position, std::string_view what);

    MofError(std::string_view fileName, MofPosition position, const std::string& what,
             const MofStatus& status);
};

}  // namespace qv::service
