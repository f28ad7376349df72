#pragma once

#include <windows.h>

#include <algorithm>

#include "tests/windows/support/ReplacedImport.h"

namespace qv::test {

/// While it lives, no sleep of this program itself takes longer than a moment. A monitor thread of
/// the library that service::MonitorPauses holds sleeps in this program's code.
class ShortSleeps {
public:
    ShortSleeps() : sleep_(GetModuleHandleW(nullptr), "Sleep", &SleepShortly) {}

private:
    static void WINAPI SleepShortly(DWORD milliseconds) {
        constexpr DWORD moment = 5;
        SleepEx(std::min(milliseconds, moment), FALSE);
    }

    ReplacedImport<void WINAPI(DWORD)> sleep_;
};

}  // namespace qv::test
