#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/LogPort.h"

namespace qv {

/// The registry settings of a log.
struct LogSettings {
    static constexpr std::uint32_t defaultMaxSize = 0x200000;

    /// Ends in a backslash.
    std::wstring folder;
    LogLevel level = LogLevel::information;
    /// In bytes.
    std::uint32_t maxSize = defaultMaxSize;
};

/// Whether "LogFolder" is read or the default folder is used.
enum class FolderSetting { ignored, read };

/// Reads the settings of a module and its component from HKLM\Software\Corvane\WBEM; missing,
/// unreadable and out-of-range values keep their defaults. Returns 0, also if the key is missing,
/// or ERROR_INVALID_PARAMETER if "LogLevel" or "LogMaxSize" was not taken or "LogFolder" exists and
/// cannot be read.
std::uint32_t ReadLogSettings(std::wstring_view module, std::wstring_view component,
                              FolderSetting folder, LogSettings& settings);

}  // namespace qv
