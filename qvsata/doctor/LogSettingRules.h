#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/doctor/Facts.h"
#include "settings/LogSettings.h"

namespace qv::doctor {

// The keys below HKEY_LOCAL_MACHINE that hold the settings of the common log and of the legacy one.
inline constexpr std::string_view commonLogKey = R"(SOFTWARE\Corvane\WBEM)";
inline constexpr std::string_view legacyLogKey = R"(SOFTWARE\Corvane\WBEM\ServerLOGGING)";

/// A setting that is a text.
struct TextSetting {
    std::string_view key;
    std::string_view name;
    std::string_view meaning;  ///< "a folder"
};

/// A setting that is a number, with its range.
struct NumberSetting {
    std::string_view key;
    std::string_view name;
    SettingRange range;
    std::uint32_t defaultValue;
};

inline constexpr TextSetting logFolderSetting{commonLogKey, "LogFolder", "a folder"};
inline constexpr TextSetting legacyLogSetting{legacyLogKey, "LOGFILENAME", "a file"};
inline constexpr std::array textSettings{logFolderSetting, legacyLogSetting};

inline constexpr auto defaultLogLevel = static_cast<std::uint32_t>(LogSettings::defaultLevel);

inline constexpr std::array numberSettings{
    NumberSetting{commonLogKey, "LogLevel", logLevels, defaultLogLevel},
    NumberSetting{commonLogKey, "LogLevel (QVWMISATA)", logLevels, defaultLogLevel},
    NumberSetting{commonLogKey, "LogMaxSize", logSizes, LogSettings::defaultMaxSize},
    NumberSetting{commonLogKey, "LogMaxSize (QVWMISATA)", logSizes, LogSettings::defaultMaxSize},
    NumberSetting{legacyLogKey, "LEVEL", {0, 0xFFFFFFFF}, defaultLogLevel},
};

/// Returns why the provider uses its default instead of a value that is set, "LogLevel is 9, not a
/// number from 1 to 5"; empty if the value is in its range.
std::string WhyNotTaken(const SettingFacts& setting);

/// Returns where a setting is, as `reg` takes it: HKLM\KEY /v "LogLevel".
std::string PlaceOf(std::string_view name);

/// Returns the setting without which one of that name is not read: "LogLevel" for
/// "LogLevel (QVWMISATA)", itself for "LogLevel"; null for "LogFolder".
const NumberSetting* GeneralSetting(std::string_view name);

/// Returns whether a setting of that name is set to a value in its range.
bool IsTaken(std::string_view name, const std::vector<SettingFacts>& settings);

}  // namespace qv::doctor
