#pragma once

#include <cstdint>
#include <mutex>
#include <string_view>

#include "log/CCommonLog.h"

namespace qv {

/// The common log as the provider objects use it: plain lines ("Entering Initialize") are at level
/// 3 and written while the configured level is 3 or lower, failures at level 5 while it is 5 or
/// lower. The log is initialised at its first use. Nothing that goes wrong here reaches the
/// caller. Any thread may call any operation at any time, but not under the loader lock.
class ProviderLog {
public:
    /// `module` names the log file and its settings.
    constexpr explicit ProviderLog(const wchar_t* module) : module_(module) {}

    /// `function` in the form L"Class::Method".
    void Plain(std::wstring_view function, std::wstring_view text) noexcept;
    void Failure(std::wstring_view function, std::wstring_view text) noexcept;

    /// The same for the narrow text of the core, in the ANSI code page.
    void Plain(std::string_view function, std::string_view text) noexcept;
    void Failure(std::string_view function, std::string_view text) noexcept;

    /// A line at a level of its own, by the same rule: written while the configured level is that
    /// one or a lower one.
    void Write(std::string_view function, LogLevel level, std::string_view text) noexcept;

    /// The configured level; LogLevel::silent when the log has no mutex.
    LogLevel Level() noexcept;

private:
    void Write(std::wstring_view function, LogLevel level, std::wstring_view text) noexcept;

    const wchar_t* module_;
    CCommonLog log_;
    std::once_flag initialised_;
};

}  // namespace qv
