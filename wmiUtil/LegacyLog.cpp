#include "wmiUtil/LegacyLog.h"

#include <exception>
#include <span>

#include "log/LogFile.h"
#include "log/LogLine.h"
#include "log/LogPlace.h"
#include "platform/windows/RegistryKey.h"
#include "platform/windows/Text.h"

namespace qv {

LegacyLog::LegacyLog(std::string_view prefix)
    : prefix_(prefix), fileName_(DefaultLogFolder() + L"qvwbems.log") {
    const auto key =
        windows::RegistryKey::OpenLocalMachine(L"Software\\Corvane\\WBEM\\ServerLOGGING");
    if (!key) {
        return;
    }
    std::wstring fileName;
    if (key.ReadText(L"LOGFILENAME", fileName) == ERROR_SUCCESS && !fileName.empty()) {
        fileName_ = fileName;
    }
    if (const auto level = key.ReadNumber(L"LEVEL")) {
        level_ = static_cast<LogLevel>(*level);
    }
    type_ = key.ReadNumber(L"TYPE").value_or(defaultType);
}

void LegacyLog::CommonLogEntry(std::string_view message, LogLevel severity) const noexcept {
    if (!TakesLines(level_, severity)) {
        return;
    }
    try {
        const windows::FileHandle file = OpenLogFile(fileName_, FILE_FLAG_RANDOM_ACCESS);
        SYSTEMTIME now{};
        GetLocalTime(&now);
        // The leading blank is on purpose: programs that read these files depend on it.
        std::string line = " [" + FormatTime(now, ':') + "] [";
        const std::string text = windows::ToNarrow(LogText(windows::ToWide(message)));
        line.append(prefix_).append("] - ").append(text).append("\r\n");
        AppendToFile(file, std::as_bytes(std::span(line)));
    } catch (const std::exception&) {
        // If memory runs out or the text cannot be converted, the line is lost, as when the file
        // cannot be written.
    }
}

}  // namespace qv
