#pragma once

#include <chrono>

namespace qv::platform {

/// A lock shared by all users of its name. It belongs to the thread that acquired it. A lock whose
/// thread ended without releasing it counts as free.
class NamedLock {
public:
    virtual ~NamedLock() = default;

    /// Waits for the lock, at most for `limit`. Returns whether the calling thread has acquired it.
    virtual bool TryAcquireFor(std::chrono::milliseconds limit) = 0;

    /// Releases the lock on the thread that acquired it.
    virtual void Release() = 0;
};

}  // namespace qv::platform
