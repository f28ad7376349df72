#pragma once

#include <windows.h>

#include <atomic>
#include <memory>
#include <vector>

#include "platform/windows/Handle.h"

namespace qv::provider {

/// The threads of one provider object that watch the disks. They run until they are ended by
/// force, wherever they stand and without being asked: a cycle may be waiting for a source or for a
/// consumer that never answers. What such a thread held of COM (its apartment, references to
/// objects) is lost; the named lock of the inventory passes to the next one who waits for it.
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
    /// A thread that is ended inside a lock of the process leaves it locked for ever. Therefore
    /// a moment passes first if a thread is in a cycle, which is usually short: COM has locks that
    /// nobody else can reach. Then the locks that can be held are held meanwhile: those of the
    /// inventory and the event providers, the loader's, and those of the heaps.
    void EndAll() noexcept;

private:
    struct Thread {
        windows::KernelHandle handle;
        std::atomic<bool> resting = false;  ///< between two cycles
    };

    static DWORD WINAPI Run(void* thread);
    void AwaitRest() const;
    void WaitForEnd(DWORD limit) const;

    std::vector<std::unique_ptr<Thread>> threads_;
};

}  // namespace qv::provider
