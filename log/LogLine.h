#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/LogPort.h"

namespace qv {

/// Returns "Debug", "Verbose", "Information", "Warning" or "Error"; "N/A" for any other value.
std::wstring_view NameOf(LogLevel level);

/// Returns "07/04/2024 09:05:03.007": month, day, year, time, and the milliseconds after
/// `millisecondSeparator`, which differs between the logs.
std::string FormatTime(const SYSTEMTIME& time, char millisecondSeparator);

/// The greatest length of a message, in UTF-16 units.
inline constexpr std::size_t longestLogText = 4096;

/// Returns a message, which may contain texts of devices, as both logs write it: no text can end
/// its line or control the program that shows the log. Characters that would, and halves of
/// characters, become "\x0a" or "\u202e". A message that is too long then is cut, followed by
/// "... (N more characters)", counted in UTF-16 units of the message.
std::wstring LogText(std::wstring_view message);

/// Returns a line of the common log, with its line end: time, level name in brackets, then
/// "function| message", or only the message if `function` is empty. The message is as LogText
/// returns it.
std::wstring FormatLogLine(const SYSTEMTIME& time, LogLevel level, std::wstring_view function,
                           std::wstring_view message);

}  // namespace qv
