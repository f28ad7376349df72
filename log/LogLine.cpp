#include "log/LogLine.h"

#include <array>
#include <cstdio>

namespace qv {
namespace {

constexpr std::array<std::wstring_view, 6> levelNames = {L"N/A",         L"Debug",   L"Verbose",
                                                         L"Information", L"Warning", L"Error"};

}  // namespace

std::wstring_view NameOf(LogLevel level) {
    const auto index = static_cast<std::size_t>(level);
    return index < levelNames.size() ? levelNames[index] : levelNames.front();
}

std::string FormatTime(const SYSTEMTIME& time, char millisecondSeparator) {
    std::array<char, 64> text{};
    const int length = std::snprintf(text.data(), text.size(), "%02d/%02d/%d %02d:%02d:%02d%c%03d",
                                     time.wMonth, time.wDay, time.wYear, time.wHour, time.wMinute,
                                     time.wSecond, millisecondSeparator, time.wMilliseconds);
    return {text.data(), static_cast<std::size_t>(length)};
}

std::wstring FormatLogLine(const SYSTEMTIME& time, LogLevel level, std::wstring_view function,
                           std::wstring_view message) {
    const std::string stamp = FormatTime(time, '.');
    std::wstring line(stamp.begin(), stamp.end());
    line.append(L" [").append(NameOf(level)).append(L"] ");
    if (!function.empty()) {
        line.append(function).append(L"| ");
    }
    return line.append(message).append(L"\r\n");
}

}  // namespace qv
