#pragma once

#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>

namespace qv::service {

/// The limit of a file of any size.
inline constexpr auto noFileLimit = std::numeric_limits<std::uintmax_t>::max();

/// Returns the text of a file's bytes as UTF-8. They are UTF-8, or UTF-16 with a byte-order mark.
/// Throws HostFileError.
/// @param name the file in messages
std::string TextOfBytes(std::string bytes, const std::string& name);

/// Returns the text of a file in the same way. Throws HostFileError, also if the file cannot be
/// read or has more than `mostBytes`.
std::string ReadTextFile(const std::filesystem::path& file, const std::string& name,
                         std::uintmax_t mostBytes = noFileLimit);

}  // namespace qv::service
