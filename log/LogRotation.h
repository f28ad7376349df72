#pragma once

#include <cstdint>
#include <string>

#include "platform/windows/Handle.h"

namespace qv {

/// RotateIfFull's result if the full file could not be renamed.
constexpr std::uint32_t rotationFailed = 3;

/// If `file`, which is `stem + ".log"`, has reached `maxSize` bytes, renames it to `stem + ".lo_"`,
/// replaces an older one, and opens a new `stem + ".log"`. The caller holds the log's mutex.
///
/// Returns 0, or rotationFailed after a message on standard error; the full file then stays in use.
/// `file` is closed afterwards if it could not be renamed or opened.
std::uint32_t RotateIfFull(const std::wstring& stem, std::uint32_t maxSize,
                           windows::FileHandle& file);

}  // namespace qv
