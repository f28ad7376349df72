#pragma once

#include <cstdint>

namespace qv {

/// Returns the setting "RefreshTimeout" of HKLM\SOFTWARE\Corvane\WMI Providers\SA; 0 if none is
/// set.
///
/// The first 255 bytes of the stored value, whatever its type, are read as narrow decimal digits up
/// to the first byte that is not one. A text is stored as wide characters, so only its first digit
/// counts ("60" yields 6); a number yields 0 unless its first byte happens to be a digit's
/// character. This is kept on purpose: existing configurations keep their meaning.
std::uint32_t ReadRefreshTimeout();

}  // namespace qv
