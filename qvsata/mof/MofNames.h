#pragma once

#include <cstddef>
#include <string_view>

namespace qv::service {

/// The maximum length of the name of a class, a property or a qualifier, in characters.
inline constexpr std::size_t longestMofName = 255;

/// Returns whether a name begins or ends with an underscore. Such names are reserved for the
/// management service.
inline bool IsReservedName(std::string_view name) {
    return name.starts_with('_') || name.ends_with('_');
}

}  // namespace qv::service
