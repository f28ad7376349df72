#pragma once

#include <windows.h>

#include <vector>

#include "platform/windows/Handle.h"

namespace qv::provider {

/// The threads of one provider object that watch the disks. They run until they are ended by
/// force, wherever they stand: a cycle may be waiting for a source or for a consumer that never
/// answers. What such a thread held of COM (its apartment, references to objects) is lost; the
/// named lock of the inventory passes to the next one who waits for it.
class MonitorThreads {
public:
    MonitorThreads() = default;
    MonitorThreads(const MonitorThreads&) = delete;
    MonitorThreads& operator=(const MonitorThreads&) = delete;

    /// Starts one more thread, which runs the process's monitor. A thread that the system refuses
    /// is missing.
    void StartOne();

    /// Ends all of them and waits for their end; from then on none runs code of this library.
    ///
    /// While it does, it holds the locks that all threads of the process need and that would stay
    /// locked for ever if a thread was ended inside them: those of the provider and the inventory,
    /// the loader's, and those of the heaps.
    void EndAll() noexcept;

private:
    std::vector<windows::KernelHandle> threads_;
};

}  // namespace qv::provider
