#include "settings/LogSettings.h"

namespace qv {
namespace {

/// Sets `value` to the number of that name if it is in the range; returns whether it did.
template <typename Number>
bool TakeNumber(const FindSetting& find, const std::wstring& name, SettingRange range,
                Number& value) {
    const std::optional<StoredValue> stored = find(name);
    const auto number = stored ? NumberOf(*stored) : std::nullopt;
    const bool taken = number && range.Contains(*number);
    if (taken) {
        value = static_cast<Number>(*number);
    }
    return taken;
}

/// Returns false if the folder setting exists but cannot be read or is empty.
bool TakeFolder(const FindSetting& find, std::wstring& folder) {
    const std::optional<StoredValue> stored = find(L"LogFolder");
    if (!stored) {
        return true;
    }
    std::wstring text = TextOf(*stored).value_or(L"");
    if (text.empty()) {
        return false;
    }
    if (!text.ends_with(L'\\')) {
        text.push_back(L'\\');
    }
    folder = text;
    return true;
}

/// Reads a more specific value only if the more general one was taken.
bool TakeLevel(const FindSetting& find, const std::wstring& module, const std::wstring& component,
               LogLevel& level) {
    const bool taken = TakeNumber(find, L"LogLevel", logLevels, level);
    if (taken && TakeNumber(find, L"LogLevel (" + module + L")", logLevels, level)) {
        TakeNumber(find, L"LogLevel (" + module + L":" + component + L")", logLevels, level);
    }
    return taken;
}

bool TakeMaxSize(const FindSetting& find, const std::wstring& module, std::uint32_t& maxSize) {
    const bool taken = TakeNumber(find, L"LogMaxSize", logSizes, maxSize);
    if (taken) {
        TakeNumber(find, L"LogMaxSize (" + module + L")", logSizes, maxSize);
    }
    return taken;
}

}  // namespace

bool TakeLogSettings(const FindSetting& find, const std::wstring& module,
                     const std::wstring& component, FolderSetting folder, LogSettings& settings) {
    const bool folderTaken = folder == FolderSetting::ignored || TakeFolder(find, settings.folder);
    const bool levelTaken = TakeLevel(find, module, component, settings.level);
    const bool sizeTaken = TakeMaxSize(find, module, settings.maxSize);
    return folderTaken && levelTaken && sizeTaken;
}

}  // namespace qv
