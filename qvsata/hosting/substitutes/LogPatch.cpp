#include "qvsata/hosting/substitutes/LogPatch.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/windows/Handle.h"
#include "platform/windows/Text.h"
#include "qvsata/hosting/SystemError.h"

namespace qv::service {
namespace {

struct Setting {
    std::wstring name;
    DWORD type;
    std::vector<BYTE> bytes;
};

/// A key below HKEY_LOCAL_MACHINE, as the library sees it. Its address is its handle.
struct SettingsKey {
    std::wstring path;
    std::vector<Setting> settings;
};

/// What the replaced system functions need. It is global because the system passes them nothing
/// that could lead to an object.
struct Logs {
    std::wstring folder;  ///< ends in a backslash; empty: nothing is written
    std::vector<SettingsKey> keys;
};

Logs logs;

constexpr std::wstring_view settingsRoot = L"SOFTWARE\\CORVANE\\WBEM";

Setting Text(const wchar_t* name, const std::wstring& text) {
    const std::span<const BYTE> bytes(reinterpret_cast<const BYTE*>(text.c_str()),
                                      (text.size() + 1) * sizeof(wchar_t));
    return {name, REG_SZ, {bytes.begin(), bytes.end()}};
}

Setting Number(const wchar_t* name, DWORD number) {
    const std::span<const BYTE> bytes(reinterpret_cast<const BYTE*>(&number), sizeof(number));
    return {name, REG_DWORD, {bytes.begin(), bytes.end()}};
}

/// Returns settings that put both logs in the folder, with the default level and size, and log
/// failed queries.
std::vector<SettingsKey> SettingsFor(const std::wstring& folder) {
    return {{std::wstring(settingsRoot),
             {Text(L"LogFolder", folder), Number(L"LogLevel", 3), Number(L"LogMaxSize", 0x200000)}},
            {std::wstring(settingsRoot) + L"\\SERVERLOGGING",
             {Text(L"LOGFILENAME", folder + L"qvwbems.log"), Number(L"LEVEL", 2)}}};
}

SettingsKey* Substitute(HKEY key) {
    const auto found = std::ranges::find_if(
        logs.keys, [key](SettingsKey& one) { return reinterpret_cast<HKEY>(&one) == key; });
    return found == logs.keys.end() ? nullptr : &*found;
}

LSTATUS WINAPI OpenKey(HKEY root, LPCWSTR path, DWORD options, REGSAM access, PHKEY key) {
    const std::wstring upper = windows::ToUpper(path == nullptr ? L"" : path);
    if (root != HKEY_LOCAL_MACHINE || !upper.starts_with(settingsRoot)) {
        return RegOpenKeyExW(root, path, options, access, key);
    }
    const auto found = std::ranges::find(logs.keys, upper, &SettingsKey::path);
    if (found == logs.keys.end()) {
        return ERROR_FILE_NOT_FOUND;
    }
    *key = reinterpret_cast<HKEY>(&*found);
    return ERROR_SUCCESS;
}

LSTATUS WINAPI QueryValue(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                          LPDWORD size) {
    const SettingsKey* const substitute = Substitute(key);
    if (substitute == nullptr) {
        return RegQueryValueExW(key, name, reserved, type, data, size);
    }
    const auto found =
        std::ranges::find(substitute->settings, std::wstring_view(name), &Setting::name);
    if (found == substitute->settings.end()) {
        return ERROR_FILE_NOT_FOUND;
    }
    if (type != nullptr) {
        *type = found->type;
    }
    if (size == nullptr) {
        return ERROR_SUCCESS;
    }
    const DWORD room = *size;
    *size = static_cast<DWORD>(found->bytes.size());
    if (data == nullptr) {
        return ERROR_SUCCESS;
    }
    if (room < *size) {
        return ERROR_MORE_DATA;
    }
    std::ranges::copy(found->bytes, data);
    return ERROR_SUCCESS;
}

LSTATUS WINAPI CloseKey(HKEY key) {
    return Substitute(key) != nullptr ? ERROR_SUCCESS : RegCloseKey(key);
}

/// The library opens no files but its logs. Where one cannot be opened, it tries the machine's log
/// folder.
HANDLE WINAPI OpenLog(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                      DWORD disposition, DWORD flags, HANDLE model) {
    if (logs.folder.empty() || !std::wstring_view(path).starts_with(logs.folder)) {
        SetLastError(ERROR_ACCESS_DENIED);
        return INVALID_HANDLE_VALUE;
    }
    return CreateFileW(path, access, share, security, disposition, flags, model);
}

void RequireWritable(const std::wstring& file) {
    const windows::FileHandle opened(CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE,
                                                 FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                                 OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!opened) {
        ThrowSystemError(GetLastError(), file);
    }
}

Logs LogsIn(const std::filesystem::path& folder) {
    if (folder.empty()) {
        return {};
    }
    std::wstring place = std::filesystem::absolute(folder).make_preferred().native();
    place += place.ends_with(L'\\') ? L"" : L"\\";
    RequireWritable(place + L"QVWMISATA.log");
    RequireWritable(place + L"qvwbems.log");
    return {place, SettingsFor(place)};
}

template <typename Replacement>
ImportPatch::Function AsFunction(Replacement* replacement) {
    return reinterpret_cast<ImportPatch::Function>(replacement);
}

}  // namespace

LogPatch::LogPatch(HMODULE library, const std::filesystem::path& folder)
    : openKey_(library, "RegOpenKeyExW", AsFunction(&OpenKey)),
      queryValue_(library, "RegQueryValueExW", AsFunction(&QueryValue)),
      closeKey_(library, "RegCloseKey", AsFunction(&CloseKey)),
      createFile_(library, "CreateFileW", AsFunction(&OpenLog)) {
    logs = LogsIn(folder);
}

LogPatch::~LogPatch() {
    logs = {};
}

}  // namespace qv::service
