#include "log/LogSettings.h"

#include <windows.h>

#include <optional>
#include <string>

#include "log/LogPlace.h"
#include "platform/windows/RegistryKey.h"
#include "platform/windows/Text.h"
#include "settings/StoredValue.h"

namespace qv {

std::uint32_t ReadLogSettings(std::wstring_view module, std::wstring_view component,
                              FolderSetting folder, LogSettings& settings) {
    settings = {.folder = DefaultLogFolder()};
    const auto key = windows::RegistryKey::OpenLocalMachine(L"Software\\Corvane\\WBEM");
    if (!key) {
        return ERROR_SUCCESS;
    }
    const auto find = [&key](const std::wstring& name) -> std::optional<StoredValue> {
        StoredValue value;
        if (key.Read(name.c_str(), value) == ERROR_FILE_NOT_FOUND) {
            return std::nullopt;
        }
        return value;
    };
    return TakeLogSettings(find, windows::ToUpper(module), windows::ToUpper(component), folder,
                           settings)
               ? ERROR_SUCCESS
               : ERROR_INVALID_PARAMETER;
}

}  // namespace qv
