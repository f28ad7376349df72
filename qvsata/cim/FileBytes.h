#pragma once

#include <cstdint>
#include <filesystem>
#include <limits>
#include <stdexcept>
#include <string>

namespace qv::service {

/// The limit of a file of any size.
inline constexpr auto noFileLimit = std::numeric_limits<std::uintmax_t>::max();

/// Why a file cannot be read: one line, without the file's name.
class UnreadableFile : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Returns the bytes of a file. Throws UnreadableFile, also for a file of more than `mostBytes`,
/// which the option --limit sets.
std::string ReadFileBytes(const std::filesystem::path& file, std::uintmax_t mostBytes);

}  // namespace qv::service
