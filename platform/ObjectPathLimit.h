#pragma once

#include <cstddef>

namespace qv::platform {

/// The longest relative path of a request for one instance, in UTF-16 units: it is read into a
/// buffer of this length and a terminating null. Requests with longer paths fail.
inline constexpr std::size_t longestRelativePath = 999;

}  // namespace qv::platform
