#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/LogPort.h"
#include "settings/StoredValue.h"

namespace qv {

/// The settings of the common log: values of HKLM\Software\Corvane\WBEM.
struct LogSettings {
    static constexpr LogLevel defaultLevel = LogLevel::information;
    static constexpr std::uint32_t defaultMaxSize = 0x200000;

    /// Ends in a backslash.
    std::wstring folder;
    LogLevel level = defaultLevel;
    /// In bytes.
    std::uint32_t maxSize = defaultMaxSize;
};

/// The lowest and the highest number that a setting may have.
struct SettingRange {
    std::uint32_t lowest;
    std::uint32_t highest;

    constexpr bool Contains(std::uint32_t number) const {
        return number >= lowest && number <= highest;
    }
};

inline constexpr SettingRange logLevels{1, 5};
inline constexpr SettingRange logSizes{0x80000, 0x2000000};

/// Whether "LogFolder" is read or the default folder is used.
enum class FolderSetting { ignored, read };

/// Returns the value of a name, "LogLevel (QVWMISATA)"; nothing if there is none.
using FindSetting = std::function<std::optional<StoredValue>(const std::wstring& name)>;

/// Takes the stored settings of a module and its component, both in upper case. Missing, unreadable
/// and out-of-range values leave `settings` as they are. Returns whether "LogLevel" and
/// "LogMaxSize" were taken and "LogFolder", if it is read, is missing or was taken.
bool TakeLogSettings(const FindSetting& find, const std::wstring& module,
                     const std::wstring& component, FolderSetting folder, LogSettings& settings);

}  // namespace qv
