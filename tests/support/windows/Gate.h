#pragma once

#include <windows.h>

#include <cstring>

#include "platform/windows/Handle.h"

namespace qv::test {

/// Ends the process at once unless `holds`, with `otherwise` on standard error: while a lock of the
/// process is held for ever, no test can report and the process cannot exit.
inline void Demand(bool holds, const char* otherwise) {
    if (!holds) {
        DWORD written = 0;
        WriteFile(GetStdHandle(STD_ERROR_HANDLE), otherwise,
                  static_cast<DWORD>(std::strlen(otherwise)), &written, nullptr);
        TerminateProcess(GetCurrentProcess(), 1);
    }
}

/// A gate that lets threads through while it is open and records that one came. A thread may be
/// terminated while it waits there.
class Gate {
public:
    /// Marks the arrival and waits until the gate is open.
    void Pass() {
        SetEvent(arrived_.Get());
        WaitForSingleObject(open_.Get(), INFINITE);
    }

    void Open() { SetEvent(open_.Get()); }
    /// Closes the gate and forgets earlier arrivals.
    void Close() {
        ResetEvent(open_.Get());
        ResetEvent(arrived_.Get());
    }

    /// Returns whether a thread came within ten seconds.
    bool SomebodyCame() const {
        return WaitForSingleObject(arrived_.Get(), 10000) == WAIT_OBJECT_0;
    }

private:
    windows::KernelHandle arrived_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    windows::KernelHandle open_{CreateEventW(nullptr, TRUE, TRUE, nullptr)};
};

}  // namespace qv::test
