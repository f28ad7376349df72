#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/doctor/Facts.h"
#include "settings/LogSettings.h"

namespace qv::doctor {

/// The key that holds the settings of the logs.
inline constexpr std::string_view logSettingsKey = R"(HKLM\SOFTWARE\Corvane\WBEM)";

/// The setting that names the folder of the common log.
inline constexpr std::string_view logFolderSetting = "LogFolder";

/// A setting that is a number, with its range.
struct NumberSetting {
    std::string_view name;
    SettingRange range;
    std::uint32_t defaultValue;
};

inline constexpr auto defaultLogLevel = static_cast<std::uint32_t>(LogSettings::defaultLevel);

inline constexpr std::array numberSettings{
    NumberSetting{"LogLevel", logLevels, defaultLogLevel},
    NumberSetting{"LogLevel (QVWMISATA)", logLevels, defaultLogLevel},
    NumberSetting{"LogMaxSize", logSizes, LogSettings::defaultMaxSize},
    NumberSetting{"LogMaxSize (QVWMISATA)", logSizes, LogSettings::defaultMaxSize},
};

/// Returns why the provider uses its default instead of a value that is set, "LogLevel is 9, not a
/// number from 1 to 5"; empty if the value is in its range.
std::string WhyNotTaken(const SettingFacts& setting);

/// Returns the setting without which one of that name is not read: "LogLevel" for
/// "LogLevel (QVWMISATA)", itself for "LogLevel"; null for "LogFolder".
const NumberSetting* GeneralSetting(std::string_view name);

/// Returns whether a setting of that name is set to a value in its range.
bool IsTaken(std::string_view name, const std::vector<SettingFacts>& settings);

}  // namespace qv::doctor
