#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "platform/windows/Handle.h"

namespace qv {

/// Opens a log file for reading and writing, shared for both, and creates it when there is none.
/// `flags` are those of CreateFileW. Without a file, GetLastError() has the reason.
windows::FileHandle OpenLogFile(const std::wstring& path, DWORD flags = FILE_ATTRIBUTE_NORMAL);

/// Writes at the end of the file. Gives 0 or the system error code.
std::uint32_t AppendToFile(const windows::FileHandle& file, std::span<const std::byte> bytes);

}  // namespace qv
