#include "qvsata/doctor/windows/Logs.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "log/LogPlace.h"
#include "log/LogSettings.h"
#include "platform/windows/Handle.h"
#include "platform/windows/RegistryKey.h"
#include "platform/windows/Text.h"

namespace qv::doctor {
namespace {

/// Opens the file for writing, or where it does not exist its folder for new files. Changes
/// nothing.
std::string WhyNotWritten(const std::filesystem::path& file) {
    std::error_code ignored;
    const bool exists = std::filesystem::exists(file, ignored);
    constexpr DWORD shares = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const windows::FileHandle opened(
        exists ? CreateFileW(file.c_str(), FILE_APPEND_DATA, shares, nullptr, OPEN_EXISTING,
                             FILE_ATTRIBUTE_NORMAL, nullptr)
               : CreateFileW(file.parent_path().c_str(), FILE_ADD_FILE, shares, nullptr,
                             OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (opened) {
        return {};
    }
    const DWORD error = GetLastError();
    return "error " + std::to_string(error) + ": " +
           std::system_category().message(static_cast<int>(error));
}

/// The end of a file: a log may have megabytes.
std::string EndOf(const std::filesystem::path& file) {
    constexpr std::streamoff most = 0x10000;
    std::ifstream stream(file, std::ios::binary | std::ios::ate);
    const std::streamoff size = stream ? static_cast<std::streamoff>(stream.tellg()) : 0;
    std::string end(static_cast<std::size_t>(std::min(size, most)), '\0');
    stream.seekg(size - static_cast<std::streamoff>(end.size()));
    stream.read(end.data(), static_cast<std::streamsize>(end.size()));
    return end;
}

/// Returns the lines that contain a word, without their line ends.
std::vector<std::string> LinesWith(const std::wstring& word, const std::wstring& text) {
    std::vector<std::string> lines;
    for (std::size_t from = 0; from < text.size();) {
        const std::size_t end = std::min(text.find(L"\r\n", from), text.size());
        const std::wstring line = text.substr(from, end - from);
        if (line.find(word) != line.npos) {
            lines.push_back(windows::ToNarrow(line, CP_UTF8));
        }
        from = end + 2;
    }
    return lines;
}

LogFacts CommonLog(const std::wstring& folder) {
    const std::filesystem::path file = folder + L"QVWMISATA.log";
    const std::string bytes = EndOf(file);
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    bytes.copy(reinterpret_cast<char*>(text.data()), text.size() * sizeof(wchar_t));
    const bool isSet = folder != DefaultLogFolder();
    return {windows::ToNarrow(file.native(), CP_UTF8),
            isSet ? R"(HKLM\SOFTWARE\Corvane\WBEM /v LogFolder)" : "", WhyNotWritten(file),
            LinesWith(L"[Error]", text)};
}

LogFacts SharedLog() {
    std::wstring name;
    const auto key =
        windows::RegistryKey::OpenLocalMachine(L"Software\\Corvane\\WBEM\\ServerLOGGING");
    const bool isSet = key && key.ReadText(L"LOGFILENAME", name) == ERROR_SUCCESS && !name.empty();
    const std::filesystem::path file = isSet ? name : DefaultLogFolder() + L"qvwbems.log";
    return {windows::ToNarrow(file.native(), CP_UTF8),
            isSet ? R"(HKLM\SOFTWARE\Corvane\WBEM\ServerLOGGING /v LOGFILENAME)" : "",
            WhyNotWritten(file), LinesWith(L"failed", windows::ToWide(EndOf(file)))};
}

}  // namespace

void ReadLogs(Facts& facts) {
    LogSettings settings;
    std::vector<std::string> wrong;
    if (ReadLogSettings(L"QVWMISATA", {}, FolderSetting::read, settings) != ERROR_SUCCESS) {
        wrong.emplace_back(
            R"(HKLM\SOFTWARE\Corvane\WBEM: LogLevel (1 to 5), LogMaxSize (524288 to 33554432) or )"
            "LogFolder is missing or wrong, and the provider uses its default");
    }
    facts.wrongSettings = wrong;
    facts.logs = std::vector<LogFacts>{CommonLog(settings.folder), SharedLog()};
}

}  // namespace qv::doctor
