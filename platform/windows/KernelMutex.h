#pragma once

#include <atomic>

#include "platform/LogPort.h"
#include "platform/NamedLock.h"
#include "platform/windows/Handle.h"

namespace qv::windows {

/// A lock that is a named system mutex. A mutex whose owner thread was terminated counts as
/// acquired.
///
/// A private mutex takes its place if the process is denied access to the named one, and from the
/// first wait for it that fails, which is logged. If the system has no resources for the private
/// one, each wait counts as successful.
class KernelMutex : public platform::NamedLock {
public:
    /// Creates the mutex, or opens the one of that name, without owning it. Does not log; `log`
    /// must outlive the object.
    KernelMutex(const wchar_t* name, platform::LogPort& log);

    bool TryAcquireFor(std::chrono::milliseconds limit) override;
    void Release() override;

private:
    void LogFailure(DWORD error) const noexcept;

    KernelHandle named_;
    KernelHandle own_;
    std::atomic<HANDLE> used_;  ///< one of the two
    platform::LogPort& log_;
};

}  // namespace qv::windows
