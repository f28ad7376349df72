#pragma once

#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>

namespace qv::service {

/// The limit of a file of any size.
inline constexpr auto noFileLimit = std::numeric_limits<std::uintmax_t>::max();

/// Returns the text of a file as UTF-8. The file is UTF-8, or UTF-16 with a byte-order mark. Throws
/// HostFileError, also for a file of more than `mostBytes`.
/// @param name the file in messages
std::string ReadTextFile(const std::filesystem::path& file, const std::string& name,
                         std::uintmax_t mostBytes = noFileLimit);

}  // namespace qv::service
