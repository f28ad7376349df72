#pragma once

#include <cstdint>
#include <string_view>

#include "settings/LogSettings.h"

namespace qv {

/// Reads the settings of a module and its component from HKLM\Software\Corvane\WBEM; missing,
/// unreadable and out-of-range values keep their defaults. Returns 0, also if the key is missing,
/// or ERROR_INVALID_PARAMETER if "LogLevel" or "LogMaxSize" was not taken or "LogFolder" exists and
/// cannot be read.
std::uint32_t ReadLogSettings(std::wstring_view module, std::wstring_view component,
                              FolderSetting folder, LogSettings& settings);

}  // namespace qv
