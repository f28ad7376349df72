#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "platform/windows/Handle.h"

namespace qv {

/// Opens a log file for shared reading and writing, and creates it if it is missing. `flags` are
/// those of CreateFileW. On failure the handle is empty and GetLastError() has the reason.
windows::FileHandle OpenLogFile(const std::wstring& path, DWORD flags = FILE_ATTRIBUTE_NORMAL);

/// Appends to the file. Returns 0 or the system error code.
std::uint32_t AppendToFile(const windows::FileHandle& file, std::span<const std::byte> bytes);

}  // namespace qv
