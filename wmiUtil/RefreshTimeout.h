#pragma once

#include <cstdint>

namespace qv {

/// The setting "RefreshTimeout" of HKLM\SOFTWARE\Corvane\WMI Providers\SA; 0 means that none is
/// set.
///
/// The first 255 bytes of the stored value, whatever its type, are read as narrow decimal digits
/// up to the first byte that is none. A text is stored as wide characters, so it yields its first
/// digit only ("60" gives 6), and a number yields 0 unless its first byte happens to be a digit's
/// character. Kept on purpose: what is configured on existing hosts goes on meaning what it meant.
std::uint32_t ReadRefreshTimeout();

}  // namespace qv
