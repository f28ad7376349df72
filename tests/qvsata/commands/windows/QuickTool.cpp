// The tool, for tests that cannot wait for the pauses of the provider's monitor, or that run it on
// a console.
#include <windows.h>

#include "qvsata/commands/Program.h"
#include "tests/support/windows/ShortSleeps.h"

namespace {

/// A process that was started without an output writes to its console. Windows sees to that by
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
