#pragma once

#include <chrono>

namespace qv::platform {

/// A lock that every user of its name shares. It belongs to the thread that acquired it; one that
/// the end of a thread left behind counts as free.
class NamedLock {
public:
    virtual ~NamedLock() = default;

    /// Waits for the lock for a limited time. True when the calling thread has it.
    virtual bool TryAcquireFor(std::chrono::milliseconds limit) = 0;

    /// Gives up what TryAcquireFor acquired, on the same thread.
    virtual void Release() = 0;
};

}  // namespace qv::platform
