#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "platform/LogPort.h"

namespace qv {

/// Returns "Debug", "Verbose", "Information", "Warning" or "Error"; "N/A" for any other value.
std::wstring_view NameOf(LogLevel level);

/// Returns "07/04/2024 09:05:03.007": month, day, year, time, and the milliseconds after
/// `millisecondSeparator`, which differs between the logs.
std::string FormatTime(const SYSTEMTIME& time, char millisecondSeparator);

/// Returns a line of the common log, with its line end: time, level name in brackets, then
/// "function| message", or only the message if `function` is empty.
std::wstring FormatLogLine(const SYSTEMTIME& time, LogLevel level, std::wstring_view function,
                           std::wstring_view message);

}  // namespace qv
