#include "provider/MonitorThread.h"

#include <malloc.h>
#include <objbase.h>

#include <algorithm>
#include <exception>
#include <mutex>
#include <utility>

#include "provider/EventProcess.h"

namespace qv::provider {
namespace {

constexpr DWORD pause = static_cast<DWORD>(CSATAHBA_EVENTS::interval.count());

/// How long, in milliseconds, the locks stay held for threads that take their time to end.
constexpr DWORD usualEnd = 1000;

/// How long, in milliseconds, a thread in a cycle is given to come to rest, and how often that is
/// looked at.
constexpr DWORD usualCycle = 500;
constexpr DWORD look = 10;

/// Keeps every other thread out of a heap while it lives.
class HeldHeap {
public:
    explicit HeldHeap(HANDLE heap) : heap_(heap), held_(HeapLock(heap)) {}
    HeldHeap(const HeldHeap&) = delete;
    HeldHeap& operator=(const HeldHeap&) = delete;
    ~HeldHeap() {
        if (held_) {
            HeapUnlock(heap_);
        }
    }

private:
    HANDLE heap_;
    BOOL held_;
};

/// Keeps other threads from being in the middle of starting, of ending, or of loading a library
/// while it lives.
class HeldLoader {
public:
    HeldLoader()
        : held_(lock_ != nullptr && unlock_ != nullptr && lock_(0, nullptr, &cookie_) >= 0) {}
    HeldLoader(const HeldLoader&) = delete;
    HeldLoader& operator=(const HeldLoader&) = delete;
    ~HeldLoader() {
        if (held_) {
            unlock_(0, cookie_);
        }
    }

private:
    // No import library has them.
    template <typename Function>
    static Function Find(const char* name) {
        return reinterpret_cast<Function>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name)));
    }
    using Lock = LONG(NTAPI*)(ULONG flags, ULONG* disposition, ULONG_PTR* cookie);
    using Unlock = LONG(NTAPI*)(ULONG flags, ULONG_PTR cookie);

    Lock lock_ = Find<Lock>("LdrLockLoaderLock");
    Unlock unlock_ = Find<Unlock>("LdrUnlockLoaderLock");
    ULONG_PTR cookie_ = 0;
    bool held_;
};

}  // namespace

DWORD WINAPI MonitorThreads::Run(void* thread) {
    std::atomic<bool>& resting = static_cast<Thread*>(thread)->resting;
    // Never undone: the thread does not end by itself.
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    for (;;) {
        try {
            ProcessMonitor().RunCycle();
        } catch (const std::exception&) {
            // Without memory the cycle is cut short; the next one begins anew.
        }
        resting = true;
        Sleep(pause);
        resting = false;
    }
}

void MonitorThreads::StartOne() {
    auto thread = std::make_unique<Thread>();
    const std::lock_guard guard(EventGuard());
    threads_.reserve(threads_.size() + 1);
    DWORD id = 0;
    thread->handle = windows::KernelHandle(CreateThread(nullptr, 0, Run, thread.get(), 0, &id));
    if (thread->handle) {
        threads_.push_back(std::move(thread));
    }
}

void MonitorThreads::EndAll() noexcept {
    AwaitRest();
    {
        // From the outside in: who has one of these locks may want a later one, never an earlier.
        const auto inventory = ProcessInventory().HoldMembers();
        const std::lock_guard guard(EventGuard());
        const HeldLoader loader;
        const HeldHeap processHeap(GetProcessHeap());
        const HeldHeap runtimeHeap(reinterpret_cast<HANDLE>(_get_heap_handle()));
        // The end of one hands the inventory's named lock to another: none may go on by then.
        for (const auto& thread : threads_) {
            SuspendThread(thread->handle.Get());
        }
        for (const auto& thread : threads_) {
            TerminateThread(thread->handle.Get(), 0);
        }
        WaitForEnd(usualEnd);
    }
    WaitForEnd(INFINITE);
    threads_.clear();
}

/// A thread that leaves its rest meanwhile comes as far as the lock of the inventory.
void MonitorThreads::AwaitRest() const {
    const auto rests = [](const auto& thread) { return thread->resting.load(); };
    for (DWORD waited = 0; waited < usualCycle && !std::ranges::all_of(threads_, rests);
         waited += look) {
        Sleep(look);
    }
}

void MonitorThreads::WaitForEnd(DWORD limit) const {
    for (const auto& thread : threads_) {
        WaitForSingleObject(thread->handle.Get(), limit);
    }
}

}  // namespace qv::provider
