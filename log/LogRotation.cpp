#include "log/LogRotation.h"

#include <windows.h>

#include <cstdio>

#include "log/LogFile.h"

namespace qv {

std::uint32_t RotateIfFull(const std::wstring& stem, std::uint32_t maxSize,
                           windows::FileHandle& file) {
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.Get(), &size) || size.QuadPart < LONGLONG{maxSize}) {
        return ERROR_SUCCESS;
    }
    const std::wstring current = stem + L".log";
    const std::wstring previous = stem + L".lo_";
    file.Reset();
    DeleteFileW(previous.c_str());
    if (!MoveFileW(current.c_str(), previous.c_str())) {
        std::fwprintf(stderr, L"logging: Failed to replace old log file: %ls\n", previous.c_str());
        return rotationFailed;
    }
    file = OpenLogFile(current);
    return ERROR_SUCCESS;
}

}  // namespace qv
