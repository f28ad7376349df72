#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "qvsata/cim/FileBytes.h"

namespace qv::service {

/// Returns the text of a file's bytes as UTF-8. They are UTF-8, or UTF-16 with a byte-order mark.
/// Throws HostFileError.
/// @param name the file in messages
std::string TextOfBytes(std::string bytes, const std::string& name);

/// Returns the text of a file in the same way. Throws HostFileError, also if the file cannot be
/// read or has more than `mostBytes`.
std::string ReadTextFile(const std::filesystem::path& file, const std::string& name,
                         std::uintmax_t mostBytes = noFileLimit);

}  // namespace qv::service
