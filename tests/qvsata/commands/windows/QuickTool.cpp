// The tool without the pauses of the provider's monitor, and usable on a test's console.
#include <windows.h>

#include "qvsata/commands/Program.h"
#include "tests/support/windows/ShortSleeps.h"

namespace {

/// Lets a process that was started without an output write to its console. Windows does so by
/// itself, Wine does not.
void OpenOutput() {
    if (GetStdHandle(STD_OUTPUT_HANDLE) == nullptr) {
        SetStdHandle(STD_OUTPUT_HANDLE, CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE,
                                                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                                    OPEN_EXISTING, 0, nullptr));
    }
}

}  // namespace

int main(int count, char** arguments) {
    OpenOutput();
    const qv::test::ShortSleeps sleeps;
    return qv::tool::RunProgram(count, arguments);
}
