#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/LogPort.h"

namespace qv {

/// What the registry says of a log.
struct LogSettings {
    static constexpr std::uint32_t defaultMaxSize = 0x200000;

    /// Ends in a backslash.
    std::wstring folder;
    LogLevel level = LogLevel::information;
    /// In bytes.
    std::uint32_t maxSize = defaultMaxSize;
};

/// Whether "LogFolder" is read as well, or the default folder stands.
enum class FolderSetting { ignored, read };

/// Reads the settings of a module and its component from HKLM\Software\Corvane\WBEM; what is
/// missing, unreadable or out of range keeps its default. Gives 0, also when there is no such key,
/// or ERROR_INVALID_PARAMETER when "LogLevel" or "LogMaxSize" was not taken or "LogFolder" is
/// present and cannot be read.
std::uint32_t ReadLogSettings(std::wstring_view module, std::wstring_view component,
                              FolderSetting folder, LogSettings& settings);

}  // namespace qv
