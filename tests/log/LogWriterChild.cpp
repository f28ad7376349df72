// Writes numbered lines to a common log: log_writer_child REGISTRY MODULE WRITER LINES. REGISTRY is
// a key below HKEY_CURRENT_USER that replaces HKEY_LOCAL_MACHINE. The exit code is the number of
// lines that the log refused.

#include <windows.h>

#include <cstdlib>
#include <string>

#include "log/CCommonLog.h"
#include "platform/windows/Text.h"

int main(int argc, char** argv) {
    if (argc != 5) {
        return -1;
    }
    HKEY root = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, qv::windows::ToWide(argv[1]).c_str(), 0, KEY_READ,
                      &root) != ERROR_SUCCESS ||
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, root) != ERROR_SUCCESS) {
        return -1;
    }
    qv::CCommonLog log;
    if (log.LogInit(qv::windows::ToWide(argv[2])) != ERROR_SUCCESS) {
        return -1;
    }
    const std::wstring writer = qv::windows::ToWide(argv[3]);
    const int lines = std::atoi(argv[4]);
    int refused = 0;
    for (int line = 0; line < lines; ++line) {
        // Lengths differ, so that an overwritten line shows.
        const std::wstring filler(static_cast<std::size_t>(line % 37), L'.');
        const std::wstring message = L"line " + std::to_wstring(line) + L" " + filler + L"end";
        refused += log.LogEntry(L"writer" + writer, qv::LogLevel::information, message) != 0;
    }
    return refused;
}
