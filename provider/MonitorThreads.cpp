#include "provider/MonitorThreads.h"

#include <malloc.h>
#include <objbase.h>

#include <algorithm>
#include <atomic>
#include <exception>
#include <utility>

#include "platform/windows/Handle.h"
#include "provider/EventDelivery.h"
#include "provider/Module.h"

namespace qv::provider {
namespace {

constexpr DWORD pause = static_cast<DWORD>(CSATAHBA_EVENTS::interval.count());

/// How long, in milliseconds, EndAll waits for the end of all threads.
constexpr DWORD longestEnd = 5000;

/// How long, in milliseconds, EndAll waits for the threads' cycles to end, and how often it checks.
/// Far longer than a cycle takes on a busy machine: a thread that is terminated inside one can
/// leave a lock of COM locked (seen under Wine: that of the registered classes).
constexpr DWORD usualCycle = 2000;
constexpr DWORD look = 10;

/// Locks a heap while it lives.
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

/// While it lives, no other thread is in the middle of starting, ending or loading a library.
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
    // These are in no import library.
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

/// Suspends a thread. After the request alone the thread runs on for a moment; its registers can be
/// read only when it has stopped.
void Stop(HANDLE thread) {
    SuspendThread(thread);
    CONTEXT registers{};
    registers.ContextFlags = CONTEXT_CONTROL;
    GetThreadContext(thread, &registers);
}

/// A pointer per thread. Unlike a thread_local variable it allocates no memory and takes no lock
/// that a terminated thread could leave locked. Its index is freed when the library is unloaded
/// (ThreadStorage.cpp).
class ThreadPointer {
public:
    ThreadPointer() : index_(TlsAlloc()) {}
    ThreadPointer(const ThreadPointer&) = delete;
    ThreadPointer& operator=(const ThreadPointer&) = delete;

    /// False if the system has no slot left.
    bool Set(void* value) const { return TlsSetValue(index_, value) != FALSE; }
    /// Null until the thread sets it.
    void* Get() const { return TlsGetValue(index_); }

private:
    DWORD index_;
};

const ThreadPointer ownThread;

}  // namespace

struct MonitorThreads::Thread {
    CSATAHBA_EVENTS& monitor;
    LibraryUse library{};
    windows::KernelHandle handle{};
    std::atomic<bool> resting = false;  ///< between two cycles
    bool leaving = false;               ///< exits by itself and owns this record
    EventDelivery inFlight{};
};

MonitorThreads::MonitorThreads(CSATAHBA_EVENTS& monitor, const DiskInventory& inventory,
                               std::mutex& guard)
    : monitor_(monitor), inventory_(inventory), guard_(guard) {}

MonitorThreads::~MonitorThreads() = default;

DWORD WINAPI MonitorThreads::Run(void* parameter) {
    auto* const thread = static_cast<Thread*>(parameter);
    if (!ownThread.Set(thread)) {
        return 0;  // as if the system had refused the thread
    }
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    for (;;) {
        try {
            thread->monitor.RunCycle();
        } catch (const std::exception&) {
            // If memory runs out, the cycle is cut short; the next one starts anew.
        }
        if (thread->leaving) {
            break;
        }
        thread->resting = true;
        Sleep(pause);
        thread->resting = false;
    }
    CoUninitialize();
    std::unique_ptr<Thread> own(thread);
    const HMODULE mapped = own->library.Detach();
    own.reset();
    FreeLibraryAndExitThread(mapped, 0);
}

void MonitorThreads::StartOne() {
    std::unique_ptr<Thread> thread(new Thread{.monitor = monitor_});
    const std::lock_guard held(guard_);
    threads_.reserve(threads_.size() + 1);
    DWORD id = 0;
    thread->handle = windows::KernelHandle(CreateThread(nullptr, 0, Run, thread.get(), 0, &id));
    if (thread->handle) {
        threads_.push_back(std::move(thread));
    }
}

void MonitorThreads::EndAll() noexcept {
    LetOwnThreadGo();
    AwaitRest();
    // Terminating one passes the inventory's named lock to another, which must not run by then.
    StopAll();
    for (const auto& thread : threads_) {
        TerminateThread(thread->handle.Get(), 0);
    }
    ForgetEnded();
}

EventDelivery& MonitorThreads::InFlight() {
    return static_cast<Thread*>(ownThread.Get())->inFlight;
}

/// Called inside a cycle of the calling thread, which exits at the cycle's end.
void MonitorThreads::LetOwnThreadGo() noexcept {
    const auto own = std::ranges::find(threads_, ownThread.Get(),
                                       [](const auto& thread) -> void* { return thread.get(); });
    if (own != threads_.end()) {
        own->release()->leaving = true;
        threads_.erase(own);
    }
}

/// A thread that starts a cycle meanwhile gets no further than the inventory's lock.
void MonitorThreads::AwaitRest() const {
    const auto rests = [](const auto& thread) { return thread->resting.load(); };
    for (DWORD waited = 0; waited < usualCycle && !std::ranges::all_of(threads_, rests);
         waited += look) {
        Sleep(look);
    }
}

void MonitorThreads::StopAll() const {
    // In this order: the owner of one of these locks may want a later one, never an earlier one.
    const auto inventory = inventory_.HoldMembers();
    const std::lock_guard held(guard_);
    const HeldLoader loader;
    const HeldHeap processHeap(GetProcessHeap());
    const HeldHeap runtimeHeap(reinterpret_cast<HANDLE>(_get_heap_handle()));
    for (const auto& thread : threads_) {
        Stop(thread->handle.Get());
    }
}

/// Keeps the records of threads that do not end for the rest of the process.
void MonitorThreads::ForgetEnded() noexcept {
    const ULONGLONG deadline = GetTickCount64() + longestEnd;
    for (auto& thread : threads_) {
        const ULONGLONG now = std::min(GetTickCount64(), deadline);
        if (WaitForSingleObject(thread->handle.Get(), static_cast<DWORD>(deadline - now)) !=
            WAIT_OBJECT_0) {
            static_cast<void>(thread.release());
        }
    }
    threads_.clear();
}

}  // namespace qv::provider
