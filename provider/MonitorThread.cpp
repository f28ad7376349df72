#include "provider/MonitorThread.h"

#include <malloc.h>
#include <objbase.h>

#include <exception>
#include <mutex>

#include "provider/EventProcess.h"

namespace qv::provider {
namespace {

constexpr DWORD pause = static_cast<DWORD>(CSATAHBA_EVENTS::interval.count());

/// How long, in milliseconds, the locks stay held for threads that take their time to end.
constexpr DWORD usualEnd = 1000;

DWORD WINAPI RunMonitor(void*) {
    // Never undone: the thread does not end by itself.
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    for (;;) {
        try {
            ProcessMonitor().RunCycle();
        } catch (const std::exception&) {
            // Without memory the cycle is cut short; the next one begins anew.
        }
        Sleep(pause);
    }
}

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

void WaitForEnd(const std::vector<windows::KernelHandle>& threads, DWORD limit) {
    for (const windows::KernelHandle& thread : threads) {
        WaitForSingleObject(thread.Get(), limit);
    }
}

}  // namespace

void MonitorThreads::StartOne() {
    const std::lock_guard guard(EventGuard());
    threads_.emplace_back();
    DWORD id = 0;
    threads_.back() = windows::KernelHandle(CreateThread(nullptr, 0, RunMonitor, nullptr, 0, &id));
    if (!threads_.back()) {
        threads_.pop_back();
    }
}

void MonitorThreads::EndAll() noexcept {
    if (threads_.empty()) {
        return;
    }
    {
        // From the outside in: who has one of these locks may want a later one, never an earlier.
        const auto inventory = ProcessInventory().HoldMembers();
        const std::lock_guard guard(EventGuard());
        const HeldLoader loader;
        const HeldHeap processHeap(GetProcessHeap());
        const HeldHeap runtimeHeap(reinterpret_cast<HANDLE>(_get_heap_handle()));
        for (const windows::KernelHandle& thread : threads_) {
            TerminateThread(thread.Get(), 0);
        }
        WaitForEnd(threads_, usualEnd);
    }
    WaitForEnd(threads_, INFINITE);
    threads_.clear();
}

}  // namespace qv::provider
