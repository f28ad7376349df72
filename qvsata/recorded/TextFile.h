#pragma once

#include <filesystem>
#include <string>

namespace qv::service {

/// Returns the text of a file as UTF-8. The file is UTF-8, or UTF-16 with a byte-order mark. Throws
/// HostFileError.
/// @param name the file in messages
std::string ReadTextFile(const std::filesystem::path& file, const std::string& name);

}  // namespace qv::service
