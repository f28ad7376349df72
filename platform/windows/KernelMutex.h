#pragma once

#include "platform/NamedLock.h"
#include "platform/windows/Handle.h"

namespace qv::windows {

/// A lock that is a named system mutex. A mutex whose owner thread was terminated counts as
/// acquired, and so does one for which the system has no resources.
class KernelMutex : public platform::NamedLock {
public:
    /// Creates the mutex, or opens the one of that name, without owning it. If this process is
    /// denied access to it, uses a private mutex instead.
    explicit KernelMutex(const wchar_t* name);

    bool TryAcquireFor(std::chrono::milliseconds limit) override;
    void Release() override;

private:
    KernelHandle mutex_;
};

}  // namespace qv::windows
