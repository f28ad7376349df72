#include "qvsata/doctor/windows/Logs.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>

#include "log/LogPlace.h"
#include "log/LogSettings.h"
#include "platform/windows/Handle.h"
#include "platform/windows/RegistryKey.h"
#include "platform/windows/Text.h"
#include "qvsata/doctor/LogSettingRules.h"
#include "settings/StoredValue.h"

namespace qv::doctor {
namespace {

/// Opens the file for writing, or where it does not exist its folder for new files. Changes
/// nothing. Returns the system's error code, 0 if there is none.
DWORD TryToWrite(const std::filesystem::path& file) {
    std::error_code ignored;
    const bool exists = std::filesystem::exists(file, ignored);
    constexpr DWORD shares = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const windows::FileHandle opened(
        exists ? CreateFileW(file.c_str(), FILE_APPEND_DATA, shares, nullptr, OPEN_EXISTING,
                             FILE_ATTRIBUTE_NORMAL, nullptr)
               : CreateFileW(file.parent_path().c_str(), FILE_ADD_FILE, shares, nullptr,
                             OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return opened ? ERROR_SUCCESS : GetLastError();
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
        if (line.find(word) != std::wstring::npos) {
            lines.push_back(windows::ToNarrow(line, CP_UTF8));
        }
        from = end + 2;
    }
    return lines;
}

LogFacts FactsOf(const std::filesystem::path& file, std::string setting,
                 std::vector<std::string> trouble) {
    const DWORD error = TryToWrite(file);
    return {windows::ToNarrow(file.native(), CP_UTF8),
            std::move(setting),
            windows::ToNarrow(file.parent_path().native(), CP_UTF8),
            error,
            "error " + std::to_string(error) + ": " +
                std::system_category().message(static_cast<int>(error)),
            std::move(trouble)};
}

windows::RegistryKey Open(std::string_view key) {
    return windows::RegistryKey::OpenLocalMachine(windows::ToWide(key, CP_UTF8).c_str());
}

LogFacts CommonLog(const std::wstring& folder) {
    const std::filesystem::path file = folder + L"QVWMISATA.log";
    const std::string bytes = EndOf(file);
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    bytes.copy(reinterpret_cast<char*>(text.data()), text.size() * sizeof(wchar_t));
    return FactsOf(file, folder == DefaultLogFolder() ? "" : PlaceOf(logFolderSetting.name),
                   LinesWith(L"[Error]", text));
}

LogFacts SharedLog() {
    std::wstring name;
    const auto key = Open(legacyLogKey);
    const bool isSet = key && key.ReadText(L"LOGFILENAME", name) == ERROR_SUCCESS && !name.empty();
    const std::filesystem::path file = isSet ? name : DefaultLogFolder() + L"qvwbems.log";
    return FactsOf(file, isSet ? PlaceOf(legacyLogSetting.name) : "",
                   LinesWith(L"failed", windows::ToWide(EndOf(file))));
}

/// Adds the values of a table of settings as they are stored, those that exist.
template <typename Table>
void AddSettings(const Table& table, std::vector<SettingFacts>& settings) {
    for (const auto& known : table) {
        const auto key = Open(known.key);
        StoredValue value;
        if (!key ||
            key.Read(windows::ToWide(known.name, CP_UTF8).c_str(), value) == ERROR_FILE_NOT_FOUND) {
            continue;
        }
        SettingFacts setting{std::string(known.name), {}};
        if (const auto number = NumberOf(value)) {
            setting.value = *number;
        } else if (const auto text = TextOf(value)) {
            setting.value = windows::ToNarrow(*text, CP_UTF8);
        }
        settings.push_back(std::move(setting));
    }
}

std::vector<SettingFacts> StoredSettings() {
    std::vector<SettingFacts> settings;
    AddSettings(textSettings, settings);
    AddSettings(numberSettings, settings);
    return settings;
}

}  // namespace

void ReadLogs(Facts& facts) {
    LogSettings settings;
    ReadLogSettings(L"QVWMISATA", {}, FolderSetting::read, settings);
    facts.settings = StoredSettings();
    facts.logs = std::vector<LogFacts>{CommonLog(settings.folder), SharedLog()};
}

}  // namespace qv::doctor
