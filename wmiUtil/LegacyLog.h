#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/LogPort.h"

namespace qv {

/// The log file that providers of several libraries share, by default qvwbems.log. Its lines are
/// narrow text in the system's ANSI code page and contain the prefix with which the log was opened.
/// Messages are written as LogText (log/LogLine.h) returns them.
///
/// Settings are read once, from HKLM\Software\Corvane\WBEM\ServerLOGGING: LOGFILENAME (text), LEVEL
/// and TYPE (numbers). A setting that is missing or of the wrong type keeps its default.
class LegacyLog {
public:
    static constexpr LogLevel defaultLevel = LogLevel::information;
    static constexpr std::uint32_t defaultType = 0;

    /// Reads the settings. The file is opened for each line. Must not be called under the loader
    /// lock.
    explicit LegacyLog(std::string_view prefix);

    /// Appends a line if a log of the level LEVEL takes lines of that severity. A line that cannot
    /// be written is silently lost. Any thread may call it at any time.
    void CommonLogEntry(std::string_view message, LogLevel severity) const noexcept;

    /// Returns the setting TYPE, kept for the library's users; lines do not depend on it.
    std::uint32_t Type() const { return type_; }

private:
    std::string prefix_;
    std::wstring fileName_;
    LogLevel level_ = defaultLevel;
    std::uint32_t type_ = defaultType;
};

}  // namespace qv
