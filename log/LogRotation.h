#pragma once

#include <cstdint>
#include <string>

#include "platform/windows/Handle.h"

namespace qv {

/// RotateIfFull's result when the full file could not be renamed.
constexpr std::uint32_t rotationFailed = 3;

/// When `file`, which is `stem + ".log"`, has reached `maxSize` bytes, makes it `stem + ".lo_"` in
/// place of an older one and opens a new `stem + ".log"`. The log's mutex is held by the caller.
///
/// Gives 0, or rotationFailed after saying so on the standard error stream; the full file then
/// stays in use. `file` is closed afterwards when it could not be renamed or opened.
std::uint32_t RotateIfFull(const std::wstring& stem, std::uint32_t maxSize,
                           windows::FileHandle& file);

}  // namespace qv
