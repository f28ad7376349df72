#include "log/ProviderLog.h"

#include <exception>

#include "platform/windows/Text.h"

namespace qv {

void ProviderLog::Plain(std::wstring_view function, std::wstring_view text) noexcept {
    Write(function, LogLevel::information, text);
}

void ProviderLog::Failure(std::wstring_view function, std::wstring_view text) noexcept {
    Write(function, LogLevel::error, text);
}

void ProviderLog::Plain(std::string_view function, std::string_view text) noexcept {
    Write(function, LogLevel::information, text);
}

void ProviderLog::Failure(std::string_view function, std::string_view text) noexcept {
    Write(function, LogLevel::error, text);
}

void ProviderLog::Write(LogLevel level, std::string_view text) noexcept {
    Write(std::string_view(), level, text);
}

LogLevel ProviderLog::Level() const noexcept {
    std::call_once(initialised_, [this] {
        try {
            log_.LogInit(module_);
        } catch (const std::exception&) {
            // If memory runs out there is no log; requests continue without one.
        }
    });
    return log_.Level();
}

void ProviderLog::Write(std::wstring_view function, LogLevel level,
                        std::wstring_view text) noexcept {
    if (!TakesLines(Level(), level)) {
        return;
    }
    try {
        log_.LogEntry(function, level, text);
    } catch (const std::exception&) {
        // A lost line is better than a lost request.
    }
}

void ProviderLog::Write(std::string_view function, LogLevel level, std::string_view text) noexcept {
    if (!TakesLines(Level(), level)) {
        return;
    }
    try {
        Write(windows::ToWide(function), level, windows::ToWide(text));
    } catch (const std::exception&) {
        // As above: text that cannot be converted loses its line.
    }
}

}  // namespace qv
