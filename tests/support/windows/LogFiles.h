#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/windows/ScratchFolder.h"
#include "tests/support/windows/ScratchRegistry.h"

// The library's logs in a test's folder: the settings that send them there, and their contents.

namespace qv::test {

/// Keys below HKEY_LOCAL_MACHINE.
inline constexpr const wchar_t* commonLogKey = L"Software\\Corvane\\WBEM";
inline constexpr const wchar_t* legacyLogKey = L"Software\\Corvane\\WBEM\\ServerLOGGING";
inline constexpr const wchar_t* refreshTimeoutKey = L"SOFTWARE\\Corvane\\WMI Providers\\SA";

/// Sends both logs to the folder; the common log writes lines of every level.
inline void SendLogsTo(const ScratchFolder& folder, ScratchRegistry& settings) {
    settings.SetText(commonLogKey, L"LogFolder", folder.Path());
    settings.SetNumber(commonLogKey, L"LogLevel", 1);
    settings.SetNumber(commonLogKey, L"LogMaxSize", 0x2000000);
    settings.SetText(legacyLogKey, L"LOGFILENAME", folder.File(L"legacy.log"));
}

/// Returns the lines of the library's common log so far, without their times.
inline std::vector<std::wstring> CommonLogLines(const ScratchFolder& folder) {
    std::vector<std::wstring> lines = ReadLinesOf(folder.File(L"QVWMISATA.log"));
    std::ranges::transform(lines, lines.begin(), &TextOf);
    return lines;
}

/// Returns the text of the legacy log so far.
inline std::string LegacyLogText(const ScratchFolder& folder) {
    const std::wstring file = folder.File(L"legacy.log");
    return std::filesystem::exists(file) ? ReadBytesOf(file) : "";
}

}  // namespace qv::test
