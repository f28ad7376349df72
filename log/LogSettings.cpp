#include "log/LogSettings.h"

#include <windows.h>

#include <optional>

#include "log/LogPlace.h"
#include "platform/windows/RegistryKey.h"
#include "platform/windows/Text.h"

namespace qv {
namespace {

using windows::RegistryKey;

struct Bounds {
    std::uint32_t lowest;
    std::uint32_t highest;
};

constexpr Bounds levels = {1, 5};
constexpr Bounds sizes = {0x80000, 0x2000000};

/// Sets `value` to the number of that name if it is within the bounds; returns whether it did.
template <typename Number>
bool TakeNumber(const RegistryKey& key, const std::wstring& name, Bounds bounds, Number& value) {
    const std::optional<DWORD> number = key.ReadNumber(name.c_str());
    const bool taken = number && *number >= bounds.lowest && *number <= bounds.highest;
    if (taken) {
        value = static_cast<Number>(*number);
    }
    return taken;
}

/// Returns false if the folder setting exists but cannot be read or is empty.
bool TakeFolder(const RegistryKey& key, std::wstring& folder) {
    std::wstring text;
    const LSTATUS status = key.ReadText(L"LogFolder", text);
    if (status == ERROR_FILE_NOT_FOUND) {
        return true;
    }
    if (status != ERROR_SUCCESS || text.empty()) {
        return false;
    }
    if (!text.ends_with(L'\\')) {
        text.push_back(L'\\');
    }
    folder = text;
    return true;
}

/// Reads a more specific value only if the more general one was taken.
bool TakeLevel(const RegistryKey& key, const std::wstring& module, const std::wstring& component,
               LogLevel& level) {
    const bool taken = TakeNumber(key, L"LogLevel", levels, level);
    if (taken && TakeNumber(key, L"LogLevel (" + module + L")", levels, level)) {
        TakeNumber(key, L"LogLevel (" + module + L":" + component + L")", levels, level);
    }
    return taken;
}

bool TakeMaxSize(const RegistryKey& key, const std::wstring& module, std::uint32_t& maxSize) {
    const bool taken = TakeNumber(key, L"LogMaxSize", sizes, maxSize);
    if (taken) {
        TakeNumber(key, L"LogMaxSize (" + module + L")", sizes, maxSize);
    }
    return taken;
}

}  // namespace

std::uint32_t ReadLogSettings(std::wstring_view module, std::wstring_view component,
                              FolderSetting folder, LogSettings& settings) {
    settings = {.folder = DefaultLogFolder()};
    const RegistryKey key = RegistryKey::OpenLocalMachine(L"Software\\Corvane\\WBEM");
    if (!key) {
        return ERROR_SUCCESS;
    }
    const std::wstring upperModule = windows::ToUpper(module);
    const std::wstring upperComponent = windows::ToUpper(component);
    const bool folderTaken = folder == FolderSetting::ignored || TakeFolder(key, settings.folder);
    const bool levelTaken = TakeLevel(key, upperModule, upperComponent, settings.level);
    const bool sizeTaken = TakeMaxSize(key, upperModule, settings.maxSize);
    return folderTaken && levelTaken && sizeTaken ? ERROR_SUCCESS : ERROR_INVALID_PARAMETER;
}

}  // namespace qv
