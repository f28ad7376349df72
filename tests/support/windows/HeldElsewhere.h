#pragma once

#include <windows.h>

#include <thread>

#include "platform/windows/Handle.h"

namespace qv::test {

/// Holds a mutex of this name on a thread of its own, as another process would, until Release or
/// the destructor.
class HeldElsewhere {
public:
    explicit HeldElsewhere(const wchar_t* name)
        : mutex_(CreateMutexW(nullptr, FALSE, name)), thread_([this] { Hold(); }) {
        WaitForSingleObject(taken_.Get(), INFINITE);
    }
    HeldElsewhere(const HeldElsewhere&) = delete;
    HeldElsewhere& operator=(const HeldElsewhere&) = delete;
    ~HeldElsewhere() { Release(); }

    void Release() { SetEvent(released_.Get()); }

private:
    void Hold() {
        const windows::HeldMutex held(mutex_.Get());
        SetEvent(taken_.Get());
        WaitForSingleObject(released_.Get(), INFINITE);
    }

    windows::KernelHandle mutex_;
    windows::KernelHandle taken_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    windows::KernelHandle released_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    std::jthread thread_;
};

}  // namespace qv::test
