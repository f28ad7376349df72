#include "platform/windows/KernelMutex.h"

#include <exception>
#include <string>

namespace qv::windows {

KernelMutex::KernelMutex(const wchar_t* name, platform::LogPort& log)
    : named_(CreateMutexW(nullptr, FALSE, name)),
      own_(CreateMutexW(nullptr, FALSE, nullptr)),
      used_(named_ ? named_.Get() : own_.Get()),
      log_(log) {}

bool KernelMutex::TryAcquireFor(std::chrono::milliseconds limit) {
    const auto time = static_cast<DWORD>(limit.count());
    const DWORD result = WaitForSingleObject(used_, time);
    if (result != WAIT_FAILED) {
        return result != WAIT_TIMEOUT;
    }
    const DWORD error = GetLastError();
    if (used_.exchange(own_.Get()) != own_.Get()) {
        LogFailure(error);
    }
    return WaitForSingleObject(own_.Get(), time) != WAIT_TIMEOUT;
}

void KernelMutex::Release() {
    // A thread may have acquired the named mutex before another thread failed to wait for it. The
    // system refuses to release the one that this thread does not own.
    ReleaseMutex(named_.Get());
    ReleaseMutex(own_.Get());
}

void KernelMutex::LogFailure(DWORD error) const noexcept {
    if (!TakesLines(log_.Level(), LogLevel::error)) {
        return;
    }
    try {
        log_.Write(LogLevel::error, "KernelMutex::TryAcquireFor| waiting failed with error " +
                                        std::to_string(error) +
                                        "; this process goes on with a mutex of its own");
    } catch (const std::exception&) {
        // The lock matters more than a line that could not be built.
    }
}

}  // namespace qv::windows
