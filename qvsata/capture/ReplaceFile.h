#pragma once

#include <filesystem>
#include <string_view>

namespace qv::capture {

/// Writes a file beside `file` (FILE.NUMBER.part, with another number each time, because two
/// processes may write at once) and renames it to `file`, so that `file` is always complete: the
/// former one or a new one. Of a symbolic link it replaces the file to which that leads. What is no
/// regular file, such as a pipe or a device, stays and is written to. Throws std::runtime_error
/// with one line if that fails; then a regular file is unchanged and the other is gone.
void ReplaceFile(const std::filesystem::path& file, std::string_view content);

}  // namespace qv::capture
