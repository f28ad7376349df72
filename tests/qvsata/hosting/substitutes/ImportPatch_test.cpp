#include "qvsata/hosting/substitutes/ImportPatch.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

TEST(ImportPatch, LeavesAModuleThatDoesNotImportTheFunctionAlone) {
    const DWORD process = GetCurrentProcessId();
    const DWORD thread = GetCurrentThreadId();
    const service::ImportPatch patch(GetModuleHandleW(nullptr), "NoSuchFunction", [] { FAIL(); });
    EXPECT_EQ(GetCurrentProcessId(), process);
    EXPECT_EQ(GetCurrentThreadId(), thread);
}

}  // namespace
}  // namespace qv::test
