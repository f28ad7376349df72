#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "platform/LogPort.h"

namespace qv {

/// "Debug", "Verbose", "Information", "Warning", "Error"; "N/A" for anything else.
std::wstring_view NameOf(LogLevel level);

/// "07/04/2024 09:05:03.007": month, day, year, time, and the milliseconds after a separator of
/// the log's own.
std::string FormatTime(const SYSTEMTIME& time, char millisecondSeparator);

/// A line of the common log, with its line end: time, level's name in brackets, then
/// "function| message", or the message alone when there is no function.
std::wstring FormatLogLine(const SYSTEMTIME& time, LogLevel level, std::wstring_view function,
                           std::wstring_view message);

}  // namespace qv
