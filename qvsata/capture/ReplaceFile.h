#pragma once

#include <filesystem>
#include <string_view>

namespace qv::capture {

/// Writes a file beside `file` (FILE.part) and renames it to `file`, so that `file` is always
/// complete: the former one or the new one. Throws std::runtime_error with one line if that fails;
/// then `file` is unchanged and FILE.part is gone.
void ReplaceFile(const std::filesystem::path& file, std::string_view content);

}  // namespace qv::capture
