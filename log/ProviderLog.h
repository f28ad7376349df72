#pragma once

#include <cstdint>
#include <mutex>
#include <string_view>

#include "log/CCommonLog.h"

namespace qv {

/// The common log as the provider objects use it: plain lines ("Entering Initialize") have level 3
/// and are written while the configured level is 3 or lower, failures have level 5 and are written
/// while it is 5 or lower. The first use initialises the log. Errors of the log never reach the
/// caller. Any thread may call any operation at any time, but not under the loader lock.
class ProviderLog : public platform::LogPort {
public:
    /// `module` names the log file and its settings.
    constexpr explicit ProviderLog(const wchar_t* module) : module_(module) {}

    /// `function` in the form L"Class::Method".
    void Plain(std::wstring_view function, std::wstring_view text) noexcept;
    void Failure(std::wstring_view function, std::wstring_view text) noexcept;

    /// The same for narrow text of the core, in the ANSI code page.
    void Plain(std::string_view function, std::string_view text) noexcept;
    void Failure(std::string_view function, std::string_view text) noexcept;

    /// The log as the builders see it. The configured level applies to their lines too.
    void Write(LogLevel level, std::string_view text) noexcept override;

    /// Returns the configured level; LogLevel::silent if the log has no mutex.
    LogLevel Level() const noexcept override;

private:
    void Write(std::string_view function, LogLevel level, std::string_view text) noexcept;
    void Write(std::wstring_view function, LogLevel level, std::wstring_view text) noexcept;

    const wchar_t* module_;
    mutable CCommonLog log_;  ///< initialised by its first use
    mutable std::once_flag initialised_;
};

}  // namespace qv
