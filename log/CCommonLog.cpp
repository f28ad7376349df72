#include "log/CCommonLog.h"

#include <span>

#include "log/LogFile.h"
#include "log/LogLine.h"
#include "log/LogMutex.h"
#include "log/LogPlace.h"
#include "log/LogRotation.h"

namespace qv {
namespace {

using windows::FileHandle;
using windows::HeldMutex;

constexpr auto mutexErrorModule = L"QVCommonLog_MutexError";

std::wstring Announcement(std::wstring_view what, std::wstring_view module, LogLevel level,
                          std::uint32_t maxSize) {
    std::wstring text = L"A logging interface is ";
    text.append(what).append(L" (Module=\"").append(module);
    text.append(L"\", Level=").append(NameOf(level));
    return text.append(L", size=").append(std::to_wstring(maxSize)).append(L")");
}

/// Returns the system error code of opening a log file in the folder; 0 if it can be written.
std::uint32_t TryFolder(const std::wstring& folder, const std::wstring& module) {
    return OpenLogFile(folder + module + L".log") ? ERROR_SUCCESS : GetLastError();
}

}  // namespace

std::uint32_t CCommonLog::LogInit(std::wstring_view module, std::wstring_view component) {
    const HeldMutex held(LocalMutex());
    if (held.Error() != ERROR_SUCCESS) {
        return held.Error();
    }
    requestedModule_ = module;
    requestedComponent_ = component;
    LogSettings settings;
    const std::uint32_t result = ReadLogSettings(module, component, FolderSetting::read, settings);
    machineMutex_.Reset();
    TakeLimits(settings);
    folder_ = settings.folder;
    if (folder_.empty()) {
        return ERROR_INVALID_PARAMETER;
    }
    if (TryFolder(folder_, requestedModule_) != ERROR_SUCCESS) {
        folder_ = DefaultLogFolder();
        if (const std::uint32_t error = TryFolder(folder_, requestedModule_)) {
            return error;
        }
    }
    const std::uint32_t started = Start(L"!CCommonLog::LogInit", L"initialized");
    return started != ERROR_SUCCESS ? started : result;
}

std::uint32_t CCommonLog::LogReset() {
    const HeldMutex held(LocalMutex());
    if (held.Error() != ERROR_SUCCESS) {
        return held.Error();
    }
    if (folder_.empty()) {
        return ERROR_INVALID_PARAMETER;
    }
    LogSettings settings;
    const std::uint32_t result =
        ReadLogSettings(requestedModule_, requestedComponent_, FolderSetting::ignored, settings);
    machineMutex_.Reset();
    TakeLimits(settings);
    const std::uint32_t started = Start(L"!CCommonLog::LogReset", L"updated");
    return started != ERROR_SUCCESS ? started : result;
}

std::uint32_t CCommonLog::LogEntry(std::wstring_view function, LogLevel level,
                                   std::wstring_view message) {
    const HeldMutex held(LocalMutex());
    return held.Error() != ERROR_SUCCESS ? held.Error() : Append(function, level, message);
}

std::wstring CCommonLog::Module() {
    const HeldMutex held(LocalMutex());
    return held.Error() != ERROR_SUCCESS ? std::wstring() : module_;
}

HANDLE CCommonLog::LocalMutex() {
    std::call_once(localMutexCreated_, [this] {
        localMutex_ = windows::KernelHandle(CreateMutexW(nullptr, FALSE, nullptr));
    });
    return localMutex_.Get();
}

void CCommonLog::TakeLimits(const LogSettings& settings) {
    level_ = settings.level;
    maxSize_ = settings.maxSize;
}

std::uint32_t CCommonLog::Start(std::wstring_view function, std::wstring_view what) {
    const std::wstring name = LogMutexName(folder_, requestedModule_);
    if (const std::uint32_t error = CreateLogMutex(name, machineMutex_)) {
        module_ = mutexErrorModule;
        level_ = LogLevel::silent;
        return error;
    }
    module_ = requestedModule_;
    stem_ = folder_ + module_;
    return Append(function, LogLevel::information, Announcement(what, module_, level_, maxSize_));
}

std::uint32_t CCommonLog::Append(std::wstring_view function, LogLevel level,
                                 std::wstring_view message) {
    const HeldMutex held(machineMutex_.Get());
    if (held.Error() != ERROR_SUCCESS) {
        return held.Error();
    }
    const std::wstring path = stem_ + L".log";
    FileHandle file = OpenLogFile(path);
    if (!file) {
        return GetLastError();
    }
    RotateIfFull(stem_, maxSize_, file);
    if (!file) {
        file = OpenLogFile(path);
    }
    if (!file) {
        return GetLastError();
    }
    SYSTEMTIME now{};
    GetLocalTime(&now);
    const std::wstring line = FormatLogLine(now, level, function, message);
    return AppendToFile(file, std::as_bytes(std::span(line)));
}

}  // namespace qv
