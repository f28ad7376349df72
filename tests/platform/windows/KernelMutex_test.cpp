#include "platform/windows/KernelMutex.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <future>
#include <string>
#include <vector>

#include "tests/support/windows/DeniedMutex.h"
#include "tests/support/windows/ReplacedImport.h"

namespace qv::test {
namespace {

using namespace std::chrono_literals;
using windows::KernelHandle;
using windows::KernelMutex;

class LogStandIn : public platform::LogPort {
public:
    LogLevel Level() const override { return LogLevel::error; }
    void Write(LogLevel, std::string_view text) override { lines.emplace_back(text); }

    std::vector<std::string> lines;
};

int failingWaits = 0;

DWORD WINAPI FailFirstWaits(HANDLE handle, DWORD limit) {
    if (failingWaits-- > 0) {
        SetLastError(ERROR_INVALID_HANDLE);
        return WAIT_FAILED;
    }
    return WaitForSingleObjectEx(handle, limit, FALSE);
}

class KernelMutexTest : public ::testing::Test {
protected:
    /// Returns whether another thread gets the lock, which it then releases.
    static bool AnotherThreadGets(KernelMutex& mutex) {
        return std::async(std::launch::async,
                          [&mutex] {
                              const bool acquired = mutex.TryAcquireFor(100ms);
                              if (acquired) {
                                  mutex.Release();
                              }
                              return acquired;
                          })
            .get();
    }

    const std::wstring name = L"QVKernelMutexTest." + std::to_wstring(GetCurrentProcessId());
    LogStandIn log;
    KernelMutex mutex{name.c_str(), log};
};

TEST_F(KernelMutexTest, IsNotOwnedAtFirst) {
    EXPECT_TRUE(AnotherThreadGets(mutex));
}

TEST_F(KernelMutexTest, KeepsOtherThreadsOutUntilItIsReleased) {
    ASSERT_TRUE(mutex.TryAcquireFor(0ms));
    EXPECT_FALSE(AnotherThreadGets(mutex));
    mutex.Release();
    EXPECT_TRUE(AnotherThreadGets(mutex));
}

TEST_F(KernelMutexTest, IsSharedByAllUsersOfItsName) {
    KernelMutex same(name.c_str(), log);
    ASSERT_TRUE(mutex.TryAcquireFor(0ms));
    EXPECT_FALSE(AnotherThreadGets(same));
    mutex.Release();
}

TEST_F(KernelMutexTest, IsAcquiredFromAThreadThatEndedWithIt) {
    ASSERT_TRUE(std::async(std::launch::async, [this] { return mutex.TryAcquireFor(0ms); }).get());
    EXPECT_TRUE(mutex.TryAcquireFor(100ms));
    mutex.Release();
}

TEST_F(KernelMutexTest, IsOfTheProcessItselfWhereTheNameIsTakenBySomethingElse) {
    const std::wstring taken = name + L".event";
    const KernelHandle event(CreateEventW(nullptr, TRUE, FALSE, taken.c_str()));
    KernelMutex own(taken.c_str(), log);
    ASSERT_TRUE(own.TryAcquireFor(0ms));
    EXPECT_FALSE(AnotherThreadGets(own));
    own.Release();
}

TEST_F(KernelMutexTest, IsOfTheProcessItselfWhereTheNamedOneIsDenied) {
    const std::wstring taken = name + L".denied";
    const DeniedMutex denied(taken.c_str());
    KernelMutex own(taken.c_str(), log);
    ASSERT_TRUE(own.TryAcquireFor(0ms));
    EXPECT_FALSE(AnotherThreadGets(own));
    own.Release();
}

TEST_F(KernelMutexTest, IsOfTheProcessItselfOnceTheNamedOneCannotBeWaitedFor) {
    KernelMutex same(name.c_str(), log);
    ASSERT_TRUE(same.TryAcquireFor(0ms));
    failingWaits = 1;
    {
        const ReplacedImport waiting(GetModuleHandleW(nullptr), "WaitForSingleObject",
                                     &FailFirstWaits);
        EXPECT_TRUE(mutex.TryAcquireFor(0ms));
    }
    same.Release();
    EXPECT_FALSE(AnotherThreadGets(mutex));
    mutex.Release();
    EXPECT_TRUE(AnotherThreadGets(mutex));
}

TEST_F(KernelMutexTest, LogsAWaitThatFailedOnce) {
    failingWaits = 1;
    const ReplacedImport waiting(GetModuleHandleW(nullptr), "WaitForSingleObject", &FailFirstWaits);
    ASSERT_TRUE(mutex.TryAcquireFor(0ms));
    mutex.Release();
    ASSERT_TRUE(mutex.TryAcquireFor(0ms));
    mutex.Release();
    EXPECT_EQ(log.lines,
              (std::vector<std::string>{"KernelMutex::TryAcquireFor| waiting failed with error 6; "
                                        "this process goes on with a mutex of its own"}));
}

}  // namespace
}  // namespace qv::test
