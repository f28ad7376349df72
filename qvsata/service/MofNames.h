#pragma once

#include <cstddef>
#include <string_view>

namespace qv::service {

/// The longest name of a class, a property or a qualifier, in characters.
inline constexpr std::size_t longestMofName = 255;

/// Whether a name begins or ends with an underscore. Such names are the management service's own.
inline bool IsReservedName(std::string_view name) {
    return name.starts_with('_') || name.ends_with('_');
}

}  // namespace qv::service
