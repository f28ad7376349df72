#pragma once

#include <cstdint>
#include <string_view>

namespace qv {

/// Returns the number that the stored bytes of "RefreshTimeout" begin with.
///
/// The bytes, whatever their type, are read as narrow decimal digits up to the first byte that is
/// not one; too many digits yield the largest number, more than 255 bytes yield 0. A text is stored
/// as wide characters, so only its first digit counts ("60" yields 6); a number yields 0 unless its
/// first byte happens to be a digit's character. This is kept on purpose: existing configurations
/// keep their meaning.
std::uint32_t RefreshTimeoutOf(std::string_view stored);

}  // namespace qv
