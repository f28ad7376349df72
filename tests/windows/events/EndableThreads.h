#pragma once

#include <windows.h>

#include <cstring>
#include <utility>
#include <vector>

#include "platform/windows/Handle.h"

// What the monitor's threads share with a test. Those threads are ended by force wherever they
// stand, so that nothing here holds a lock that would outlive its owner: kernel mutexes, and gates
// at which a test knows a thread to stand.

namespace qv::test {

/// Ends the process at once unless `holds`, with `otherwise` on standard error: where a lock of the
/// process is held for ever no test can report, nor the process exit.
inline void Demand(bool holds, const char* otherwise) {
    if (!holds) {
        DWORD written = 0;
        WriteFile(GetStdHandle(STD_ERROR_HANDLE), otherwise,
                  static_cast<DWORD>(std::strlen(otherwise)), &written, nullptr);
        TerminateProcess(GetCurrentProcess(), 1);
    }
}

/// A gate that lets threads through while it is open, and knows that one came.
class Gate {
public:
    /// Called by whoever passes the gate.
    void Pass() {
        SetEvent(arrived_.Get());
        WaitForSingleObject(open_.Get(), INFINITE);
    }

    void Open() { SetEvent(open_.Get()); }
    /// Closes the gate and forgets who came.
    void Close() {
        ResetEvent(open_.Get());
        ResetEvent(arrived_.Get());
    }

    /// Whether somebody came within ten seconds.
    bool SomebodyCame() const {
        return WaitForSingleObject(arrived_.Get(), 10000) == WAIT_OBJECT_0;
    }

private:
    windows::KernelHandle arrived_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    windows::KernelHandle open_{CreateEventW(nullptr, TRUE, TRUE, nullptr)};
};

/// A list that any thread may add to. Its room is there from the start: growing is no state to be
/// ended in.
template <typename Item>
class SharedList {
public:
    SharedList() { items_.reserve(20000); }

    void Add(Item item) {
        const windows::HeldMutex held(mutex_.Get());
        items_.push_back(std::move(item));
    }
    std::vector<Item> All() const {
        const windows::HeldMutex held(mutex_.Get());
        return items_;
    }
    void Clear() {
        const windows::HeldMutex held(mutex_.Get());
        items_.clear();
    }

private:
    windows::KernelHandle mutex_{CreateMutexW(nullptr, FALSE, nullptr)};
    std::vector<Item> items_;
};

}  // namespace qv::test
