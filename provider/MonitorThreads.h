#pragma once

#include <windows.h>

#include <memory>
#include <mutex>
#include <vector>

#include "events/CSATAHBA_EVENTS.h"
#include "source/DiskInventory.h"

namespace qv::provider {

struct EventDelivery;

/// The threads of one provider object that watch the disks. They run until they are ended by
/// force, wherever they stand and without being asked: a cycle may be waiting for a source or for a
/// consumer that never answers. One thread is spared: that on which EndAll is called, because a
/// consumer drops the provider inside a delivery. It finishes its pass and leaves by itself.
///
/// Each thread keeps the library in use and mapped until it has ended.
class MonitorThreads {
public:
    /// All of them outlive the object and its threads. The threads run the monitor's cycles, which
    /// lock the inventory, and deliver under the guard (InFlight).
    MonitorThreads(CSATAHBA_EVENTS& monitor, const DiskInventory& inventory, std::mutex& guard);
    MonitorThreads(const MonitorThreads&) = delete;
    MonitorThreads& operator=(const MonitorThreads&) = delete;
    ~MonitorThreads();

    /// Starts one more thread, which runs the monitor. A thread that the system refuses is missing.
    void StartOne();

    /// Ends all of them but the calling one, waits for their end and gives back what they were
    /// delivering with. From then on none of them runs code of this library, and the calling one
    /// no more than the rest of its pass. A thread that the system does not end within seconds
    /// stays stopped where it is; what belongs to it, the library too, is kept for the rest of the
    /// process.
    ///
    /// A thread that is ended inside a lock of the process leaves it locked for ever. Against that
    /// - a moment passes first when a thread is in a cycle, which is usually short;
    /// - the threads are stopped while the locks are held that can be: those of the inventory and
    ///   the event providers, the loader's, and those of the process's and the C runtime's heap.
    ///   These are waited for as long as others hold them, and so is the stop itself: a thread that
    ///   is stuck inside the system holds up the caller;
    /// - the locks are free again when the stopped threads are ended. A lock that is given back
    ///   wakes a thread that waits for it, and so forgets it, while that thread still exists.
    ///
    /// What remains, for a thread that is ended in the middle of a cycle:
    /// - The locks that nobody else can reach (of COM, of the consumer, of other heaps, of the C++
    ///   runtime) stay locked when it held them: whoever needs one later waits for ever. When it
    ///   waited for one, that lock still counts on it.
    /// - Of several stopped threads that wait for one lock, the lock forgets one only. What it
    ///   keeps of the others can be on their stacks, which are gone.
    /// - A thread that was woken for a lock, and stopped before it took it, wakes no other: one
    ///   that waits for the same lock can go on waiting until a third one does.
    /// - Code that it was in is not finished: a reference that it was just giving back, what it
    ///   had allocated, its COM apartment, the end of another provider object.
    /// The named lock of the inventory is not among these: it passes to the next one who waits.
    void EndAll() noexcept;

    /// What the calling thread, one of the monitor's, is delivering with. When the thread is ended
    /// meanwhile it is given back by whoever ends it, and therefore begun and emptied under
    /// the guard. In between only the thread itself adds to it.
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
