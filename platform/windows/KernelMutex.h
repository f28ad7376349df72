#pragma once

#include "platform/NamedLock.h"
#include "platform/windows/Handle.h"

namespace qv::windows {

/// A lock that is a named mutex of the system. A mutex whose owner's thread was ended counts as
/// acquired, and so does one that the system has no room for.
class KernelMutex : public platform::NamedLock {
public:
    /// Creates the mutex or opens the one of that name, without owning it. A mutex of that name
    /// that is denied to this process is replaced by one of the process's own.
    explicit KernelMutex(const wchar_t* name);

    bool TryAcquireFor(std::chrono::milliseconds limit) override;
    void Release() override;

private:
    KernelHandle mutex_;
};

}  // namespace qv::windows
