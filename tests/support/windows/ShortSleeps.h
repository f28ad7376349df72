#pragma once

#include <windows.h>

#include <atomic>

#include "tests/support/windows/ReplacedImport.h"

namespace qv::test {

/// While it lives, no sleep of a module takes a second or longer, so that a monitor thread runs its
/// cycles without pauses. A thread that service::MonitorPauses holds sleeps in the program's own
/// code.
class ShortSleeps {
public:
    explicit ShortSleeps(HMODULE module = GetModuleHandleW(nullptr))
        : sleep_(module, "Sleep", &SleepShortly) {
        asked = 0;
    }

    /// The last requested sleep of a second or longer, in milliseconds.
    inline static std::atomic<DWORD> asked = 0;

private:
    static void WINAPI SleepShortly(DWORD milliseconds) {
        const bool isLong = milliseconds >= 1000;
        if (isLong) {
            asked = milliseconds;
        }
        SleepEx(isLong ? 5 : milliseconds, FALSE);
    }

    ReplacedImport<void WINAPI(DWORD)> sleep_;
};

}  // namespace qv::test
