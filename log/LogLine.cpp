#include "log/LogLine.h"

#include <array>
#include <cstdio>

#include "platform/ControlCharacters.h"

namespace qv {
namespace {

constexpr std::array<std::wstring_view, 6> levelNames = {L"N/A",         L"Debug",   L"Verbose",
                                                         L"Information", L"Warning", L"Error"};

constexpr bool IsSurrogate(char32_t code) {
    return code >= 0xD800 && code <= 0xDFFF;
}

/// Returns the number of units of the first character: two for a pair of surrogates.
std::size_t FirstUnits(std::wstring_view text) {
    return text.size() > 1 && IS_SURROGATE_PAIR(text[0], text[1]) ? 2 : 1;
}

std::wstring Shown(std::wstring_view character) {
    constexpr char32_t firstPair = 0x10000;
    const char32_t code = character.size() == 2 ? firstPair + ((character[0] - 0xD800U) << 10U) +
                                                      (character[1] - 0xDC00U)
                                                : static_cast<char32_t>(character[0]);
    if (!IsSurrogate(code) && !platform::ControlsText(code)) {
        return std::wstring(character);
    }
    const std::string text = platform::CodeText(code);
    return {text.begin(), text.end()};
}

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

std::wstring LogText(std::wstring_view message) {
    std::wstring text;
    while (!message.empty()) {
        const std::size_t units = FirstUnits(message);
        const std::wstring shown = Shown(message.substr(0, units));
        if (text.size() + shown.size() > longestLogText) {
            text.append(L"... (").append(std::to_wstring(message.size()));
            return text.append(L" more characters)");
        }
        text += shown;
        message.remove_prefix(units);
    }
    return text;
}

std::wstring FormatLogLine(const SYSTEMTIME& time, LogLevel level, std::wstring_view function,
                           std::wstring_view message) {
    const std::string stamp = FormatTime(time, '.');
    std::wstring line(stamp.begin(), stamp.end());
    line.append(L" [").append(NameOf(level)).append(L"] ");
    if (!function.empty()) {
        line.append(function).append(L"| ");
    }
    return line.append(LogText(message)).append(L"\r\n");
}

}  // namespace qv
