#include "platform/windows/KernelMutex.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <future>
#include <string>

namespace qv::test {
namespace {

using namespace std::chrono_literals;
using windows::KernelHandle;
using windows::KernelMutex;

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
    KernelMutex mutex{name.c_str()};
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
    KernelMutex same(name.c_str());
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
    KernelMutex own(taken.c_str());
    ASSERT_TRUE(own.TryAcquireFor(0ms));
    EXPECT_FALSE(AnotherThreadGets(own));
    own.Release();
}

}  // namespace
}  // namespace qv::test
