#include "platform/windows/Handle.h"

#include <gtest/gtest.h>

#include <thread>

namespace qv::test {
namespace {

using windows::FileHandle;
using windows::HeldMutex;
using windows::KernelHandle;

bool IsOpen(HANDLE handle) {
    DWORD flags = 0;
    return GetHandleInformation(handle, &flags) != 0;
}

bool AnotherThreadCanTake(HANDLE mutex) {
    DWORD result = WAIT_FAILED;
    std::thread([&] {
        result = WaitForSingleObject(mutex, 0);
        if (result == WAIT_OBJECT_0) {
            ReleaseMutex(mutex);
        }
    }).join();
    return result == WAIT_OBJECT_0;
}

void AbandonOnAnotherThread(HANDLE mutex) {
    std::thread([&] { WaitForSingleObject(mutex, INFINITE); }).join();
}

TEST(Handle, HoldsNothingAtFirst) {
    EXPECT_FALSE(FileHandle());
    EXPECT_EQ(FileHandle().Get(), INVALID_HANDLE_VALUE);
    EXPECT_FALSE(KernelHandle());
    EXPECT_EQ(KernelHandle().Get(), nullptr);
}

TEST(Handle, ClosesWhatItHolds) {
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    {
        const KernelHandle owner(event);
        EXPECT_TRUE(owner);
        EXPECT_TRUE(IsOpen(event));
    }
    EXPECT_FALSE(IsOpen(event));
}

TEST(Handle, ClosesWhatItHeldWhenAnotherIsMovedIn) {
    const HANDLE first = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const HANDLE second = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    KernelHandle owner(first);
    owner = KernelHandle(second);
    EXPECT_FALSE(IsOpen(first));
    EXPECT_EQ(owner.Get(), second);
    EXPECT_TRUE(IsOpen(second));
}

TEST(Handle, GivesItsHandleUpToTheOneThatIsMovedFromIt) {
    KernelHandle from(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    const HANDLE event = from.Get();
    const KernelHandle to(std::move(from));
    EXPECT_EQ(from.Get(), nullptr);
    EXPECT_EQ(to.Get(), event);
    EXPECT_TRUE(IsOpen(event));
}

TEST(Handle, ClosesWhatItHeldBeforeAnOutParameterIsWritten) {
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    KernelHandle owner(event);
    EXPECT_EQ(*owner.Receive(), nullptr);
    EXPECT_FALSE(IsOpen(event));
}

TEST(Handle, LeavesAReleasedHandleOpen) {
    KernelHandle owner(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    const HANDLE event = owner.Release();
    owner.Reset();
    EXPECT_TRUE(IsOpen(event));
    CloseHandle(event);
}

TEST(Handle, MutexKeepsOtherThreadsOutWhileItIsHeld) {
    const KernelHandle mutex(CreateMutexW(nullptr, FALSE, nullptr));
    {
        const HeldMutex held(mutex.Get());
        EXPECT_EQ(held.Error(), DWORD{ERROR_SUCCESS});
        EXPECT_FALSE(AnotherThreadCanTake(mutex.Get()));
    }
    EXPECT_TRUE(AnotherThreadCanTake(mutex.Get()));
}

TEST(Handle, MutexWhoseOwnerDiedIsAcquiredAndReleasedWholly) {
    const KernelHandle mutex(CreateMutexW(nullptr, FALSE, nullptr));
    AbandonOnAnotherThread(mutex.Get());
    SetLastError(ERROR_BUSY);  // what an earlier call left behind must not count
    {
        const HeldMutex held(mutex.Get());
        EXPECT_EQ(held.Error(), DWORD{ERROR_SUCCESS});
        EXPECT_FALSE(AnotherThreadCanTake(mutex.Get()));
    }
    EXPECT_TRUE(AnotherThreadCanTake(mutex.Get()));
}

TEST(Handle, MutexTellsTheErrorOfAWaitThatFailed) {
    EXPECT_EQ(HeldMutex(nullptr).Error(), DWORD{ERROR_INVALID_HANDLE});
}

}  // namespace
}  // namespace qv::test
