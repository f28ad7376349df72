#pragma once

#include <windows.h>

#include <cstring>

#include "platform/windows/Handle.h"

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

/// A gate that lets threads through while it is open, and knows that one came. A thread may be
/// ended by force while it stands there.
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

}  // namespace qv::test
