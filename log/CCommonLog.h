#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>

#include "log/LogSettings.h"
#include "platform/LogPort.h"
#include "platform/windows/Handle.h"

namespace qv {

/// A rotating log file that several processes write: `folder + module + ".log"`, renamed to ".lo_"
/// when it reaches its size limit. Lines are UTF-16 without a byte-order mark. A machine-wide
/// mutex, named after folder and module, is held from opening the file to closing it; no file
/// stays open between lines.
///
/// The log writes every line that it is given; ProviderLog applies the level.
///
/// Results are system error codes (winerror.h), 0 for success. Any thread may call any operation at
/// any time.
class CCommonLog {
public:
    constexpr CCommonLog() = default;

    /// Reads the settings, finds a writable folder, creates the machine-wide mutex and writes the
    /// first line. Results: ERROR_INVALID_PARAMETER if "LogLevel" or "LogMaxSize" is missing or out
    /// of range or "LogFolder" cannot be read (the log then works with their defaults), the error
    /// of the file or mutex that could not be created, or the error of the first line. Without the
    /// mutex, Module() is "QVCommonLog_MutexError" and Level() LogLevel::silent.
    std::uint32_t LogInit(std::wstring_view module, std::wstring_view component = {});

    /// Reads level and size limit again, creates the machine-wide mutex anew and writes a line.
    /// Keeps the folder. Results as LogInit; ERROR_INVALID_PARAMETER before the first LogInit.
    std::uint32_t LogReset();

    /// Appends one complete line. `function` may be empty. Returns ERROR_INVALID_HANDLE without a
    /// machine-wide mutex, otherwise the error of the file.
    std::uint32_t LogEntry(std::wstring_view function, LogLevel level, std::wstring_view message);

    LogLevel Level() const { return level_; }

    /// The log's module name; empty before LogInit.
    std::wstring Module();

private:
    HANDLE LocalMutex();
    void TakeLimits(const LogSettings& settings);
    std::uint32_t Start(std::wstring_view function, std::wstring_view what);
    std::uint32_t Append(std::wstring_view function, LogLevel level, std::wstring_view message);

    // Guards all members below. A kernel mutex rather than std::mutex: a thread that is terminated
    // while it writes leaves it abandoned, not locked for ever.
    windows::KernelHandle localMutex_;
    std::once_flag localMutexCreated_;

    windows::KernelHandle machineMutex_;
    std::wstring requestedModule_;
    std::wstring requestedComponent_;
    std::wstring module_;
    std::wstring folder_;
    std::wstring stem_;  // folder and module, without extension
    std::atomic<LogLevel> level_ = LogLevel::information;
    std::uint32_t maxSize_ = LogSettings::defaultMaxSize;
};

}  // namespace qv
