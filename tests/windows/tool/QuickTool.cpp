// The tool, for tests that cannot wait for the pauses of the provider's monitor.
#include "qvsata/Program.h"
#include "tests/windows/support/ShortSleeps.h"

int main() {
    const qv::test::ShortSleeps sleeps;
    return qv::tool::RunProgram();
}
