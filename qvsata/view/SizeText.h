#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qv::view {

/// Returns the number of bytes that a text states in decimal; nothing for any other text.
std::optional<std::uint64_t> BytesOf(std::string_view text);

/// Returns a size in GB (10^9 bytes), rounded to the nearest tenth: "240.1 GB"; a dash without
/// size.
std::string GigabytesText(std::optional<std::uint64_t> bytes);

/// The same in GiB (2^30 bytes).
std::string GibibytesText(std::optional<std::uint64_t> bytes);

}  // namespace qv::view
