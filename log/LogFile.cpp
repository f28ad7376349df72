#include "log/LogFile.h"

namespace qv {

windows::FileHandle OpenLogFile(const std::wstring& path, DWORD flags) {
    return windows::FileHandle(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                                           FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                           flags, nullptr));
}

std::uint32_t AppendToFile(const windows::FileHandle& file, std::span<const std::byte> bytes) {
    DWORD written = 0;
    if (!SetFilePointerEx(file.Get(), {}, nullptr, FILE_END) ||
        !WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr)) {
        return GetLastError();
    }
    return written == bytes.size() ? ERROR_SUCCESS : ERROR_DISK_FULL;
}

}  // namespace qv
