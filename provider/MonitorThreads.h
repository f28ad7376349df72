#pragma once

#include <windows.h>

#include <memory>
#include <mutex>
#include <vector>

#include "events/CSATAHBA_EVENTS.h"
#include "source/DiskInventory.h"

namespace qv::provider {

struct EventDelivery;

/// The threads of one provider object that watch the disks. They run until they are terminated,
/// whatever they are doing and without being asked: a cycle may be waiting for a source or for a
/// consumer that never answers. One thread is spared: the one that calls EndAll, because a consumer
/// released the provider inside a delivery. It finishes its cycle and exits by itself.
///
/// Each thread keeps the library in use and mapped until it has ended.
class MonitorThreads {
public:
    /// All arguments must outlive the object and its threads. The threads run the monitor's cycles,
    /// which lock the inventory, and deliver under the guard (InFlight).
    MonitorThreads(CSATAHBA_EVENTS& monitor, const DiskInventory& inventory, std::mutex& guard);
    MonitorThreads(const MonitorThreads&) = delete;
    MonitorThreads& operator=(const MonitorThreads&) = delete;
    ~MonitorThreads();

    /// Starts one more thread, which runs the monitor. If the system refuses the thread, it is
    /// missing.
    void StartOne();

    /// Terminates all threads except the calling one, waits for their end and releases the
    /// interfaces of their deliveries. Afterwards none of them runs code of this library, and the
    /// calling one only the rest of its cycle. A thread that the system does not end within seconds
    /// stays suspended; what belongs to it, including the library, is kept for the rest of the
    /// process.
    ///
    /// A thread that is terminated inside a lock of the process leaves it locked for ever. To avoid
    /// this:
    /// - if a thread is in a cycle, EndAll first waits up to two seconds for its end;
    /// - EndAll suspends the threads while it holds the locks that it can take: those of the
    ///   inventory and the event providers, the loader lock, and the locks of the process heap and
    ///   the C runtime's heap. It waits for these without a time limit while others hold them, and
    ///   for the suspension too: a thread that is stuck inside the system blocks the caller;
    /// - EndAll releases the locks before it terminates the suspended threads. Releasing a lock
    ///   wakes a waiting thread and so removes it from the lock while that thread still exists.
    ///
    /// Remaining risks, for a thread that is terminated in the middle of a cycle:
    /// - The locks that EndAll cannot reach (of COM, of the consumer, of other heaps, of the C++
    ///   runtime) stay locked if the thread held them: every later caller waits for ever. If the
    ///   thread waited for such a lock, the lock still counts it as waiting.
    /// - If several suspended threads wait for one lock, the lock removes only one of them. What it
    ///   keeps of the others can be on their stacks, which no longer exist.
    /// - A thread that was woken for a lock, and suspended before it took it, wakes no other:
    ///   another waiter can go on waiting until a third thread wakes it.
    /// - The code that it ran is not finished: a reference that it was releasing, memory that it
    ///   had allocated, its COM apartment, the end of another provider object.
    /// The inventory's named lock is not affected: the next waiter acquires it.
    void EndAll() noexcept;

    /// The interfaces of the calling thread's delivery; the thread is one of the monitor's. Set and
    /// cleared under the guard, because EndAll releases them if it terminates the thread. In
    /// between only the thread itself adds to them.
    static EventDelivery& InFlight();

private:
    struct Thread;

    static DWORD WINAPI Run(void* parameter);
    void LetOwnThreadGo() noexcept;
    void AwaitRest() const;
    void StopAll() const;
    void ForgetEnded() noexcept;

    CSATAHBA_EVENTS& monitor_;
    const DiskInventory& inventory_;
    std::mutex& guard_;
    std::vector<std::unique_ptr<Thread>> threads_;
};

}  // namespace qv::provider
