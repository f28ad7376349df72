// The end of a provider whose threads are anywhere in their cycles.
#include <random>
#include <thread>

#include "tests/provider/EventTest.h"
#include "tests/support/windows/ReplacedImport.h"

namespace qv::test {
namespace {

constexpr int rounds = 10;
constexpr int roundsInCycle = 3;  // each takes the seconds that a cycle is given to end

class MonitorThreadsTest : public EventTest {
protected:
    void SetUp() override {
        EventTest::SetUp();
        settings.reset();
    }

    /// Creates a provider with this number of subscriptions. Two threads can hide a change from
    /// each other; a test that waits for an event starts one.
    void Begin(int subscriptions = 2) {
        Make(init);
        ASSERT_EQ(Initialize(), S_OK);
        for (int subscription = 0; subscription < subscriptions; ++subscription) {
            ASSERT_EQ(ProvideEvents(sink.Get()), S_OK);
        }
    }

    /// Waits until the disks have been looked at this often.
    void WaitForLooks(std::size_t count) const {
        while (source.LookCount() < count) {
            Sleep(1);
        }
    }

    /// Releases the provider; expects that no thread is left.
    void End() {
        init.Reset();
        ASSERT_EQ(ThreadCount(), threadsBefore);
    }

    /// Expects a new provider to detect and deliver a new disk.
    void ExpectThatTheNextOneWorks() {
        const ShortSleeps sleeps(library.Module());
        source.gate.Open();
        sink = windows::MakeObject<EventSink>();
        source.SetLooks({{}});
        Begin(1);
        source.SetLooks({{{L"Next"}}});
        EXPECT_TRUE(sink->HasReceived(1));
        End();
    }
};

TEST_F(MonitorThreadsTest, EndsThreadsThatHaveJustStarted) {
    for (int round = 0; round < rounds; ++round) {
        Begin();
        End();
    }
    ExpectThatTheNextOneWorks();
}

TEST_F(MonitorThreadsTest, EndsThreadsThatSleep) {
    for (int round = 0; round < rounds; ++round) {
        const std::size_t looks = source.LookCount();
        Begin();
        WaitForLooks(looks + 4);
        Sleep(5);
        End();
    }
    ExpectThatTheNextOneWorks();
}

TEST_F(MonitorThreadsTest, EndsAThreadThatHoldsTheInventorysLockWhileItsQueryRuns) {
    // The first subscription polls the disks itself.
    Begin();
    End();
    for (int round = 0; round < roundsInCycle; ++round) {
        source.gate.Close();
        Begin();
        ASSERT_TRUE(source.gate.SomebodyCame());
        End();
    }
    ExpectThatTheNextOneWorks();
}

TEST_F(MonitorThreadsTest, EndsThreadsThatWaitForTheInventorysLock) {
    Begin();
    End();
    const windows::KernelHandle lock(CreateMutexW(nullptr, FALSE, L"DiskDriveListCurrMutex"));
    {
        const windows::HeldMutex held(lock.Get());
        for (int round = 0; round < roundsInCycle; ++round) {
            Begin();
            Sleep(20);
            End();
        }
    }
    ExpectThatTheNextOneWorks();
}

TEST_F(MonitorThreadsTest, EndsAThreadThatDelivers) {
    const ShortSleeps sleeps(library.Module());
    for (int round = 0; round < roundsInCycle; ++round) {
        sink = windows::MakeObject<EventSink>();
        sink->gate.Close();
        Begin(1);
        source.SetLooks({{{std::to_wstring(round)}}});
        ASSERT_TRUE(sink->gate.SomebodyCame());
        End();
    }
    ExpectThatTheNextOneWorks();
}

TEST_F(MonitorThreadsTest, GivesBackWhatAThreadWasDeliveringWith) {
    const ShortSleeps sleeps(library.Module());
    sink->gate.Close();
    Begin(1);
    source.SetLooks({{{L"A"}}});
    ASSERT_TRUE(sink->gate.SomebodyCame());
    End();
    EXPECT_EQ(ReferencesTo(*sink.Get()), 1U);
    EXPECT_EQ(ReferencesTo(*nameSpace.Get()), 1U);
    EXPECT_EQ(ReferencesTo(*nameSpace->definition.Get()), 1U);
    const auto indications = sink->objects.All();
    EXPECT_EQ(ReferencesTo(*indications.front().Get()), 2U);  // here and at the sink
}

/// Another thread that needs the locks of the process while a monitor thread is terminated.
class LockUser {
public:
    LockUser() { wanted = got = 0; }
    LockUser(const LockUser&) = delete;
    LockUser& operator=(const LockUser&) = delete;
    ~LockUser() { SetEvent(begin.Get()); }

    /// Replaces TerminateThread.
    static BOOL WINAPI UseLocksAndTerminate(HANDLE thread, DWORD exitCode) {
        ++wanted;
        SetEvent(begin.Get());
        got += WaitForSingleObject(done.Get(), 5000) == WAIT_OBJECT_0 ? 1 : 0;
        return TerminateThread(thread, exitCode);
    }

    inline static int wanted = 0;
    inline static int got = 0;

private:
    static void UseLocks() {
        WaitForSingleObject(begin.Get(), INFINITE);
        HeapLock(GetProcessHeap());
        HeapUnlock(GetProcessHeap());
        FreeLibrary(LoadLibraryW(L"kernel32.dll"));
        SetEvent(done.Get());
    }

    inline static const windows::KernelHandle begin{CreateEventW(nullptr, FALSE, FALSE, nullptr)};
    inline static const windows::KernelHandle done{CreateEventW(nullptr, FALSE, FALSE, nullptr)};
    std::jthread thread{UseLocks};
};

TEST_F(MonitorThreadsTest, HoldsNoLockOfTheProcessWhenItEndsAThread) {
    Begin(1);
    {
        LockUser user;
        const ReplacedImport terminate(library.Module(), "TerminateThread",
                                       &LockUser::UseLocksAndTerminate);
        init.Reset();
    }
    EXPECT_EQ(LockUser::wanted, 1);
    EXPECT_EQ(LockUser::got, 1);
    EXPECT_EQ(ThreadCount(), threadsBefore);
}

/// Keeps threads that the library terminates from ending, until it is destroyed.
class ThreadsThatDoNotEnd {
public:
    explicit ThreadsThatDoNotEnd(HMODULE library)
        : terminate_(library, "TerminateThread", &LetLive) {}
    ThreadsThatDoNotEnd(const ThreadsThatDoNotEnd&) = delete;
    ThreadsThatDoNotEnd& operator=(const ThreadsThatDoNotEnd&) = delete;
    ~ThreadsThatDoNotEnd() {
        TerminateThread(kept.Get(), 0);
        WaitForSingleObject(kept.Get(), INFINITE);
        kept.Reset();
    }

private:
    static BOOL WINAPI LetLive(HANDLE thread, DWORD) {
        return DuplicateHandle(GetCurrentProcess(), thread, GetCurrentProcess(), kept.Receive(), 0,
                               FALSE, DUPLICATE_SAME_ACCESS);
    }

    inline static windows::KernelHandle kept;
    ReplacedImport<BOOL WINAPI(HANDLE, DWORD)> terminate_;
};

TEST_F(MonitorThreadsTest, GoesOnWithoutAThreadThatDoesNotEnd) {
    // A library for this test, which stays loaded.
    const FreshLibrary stuck;
    ComPtr<IWbemProviderInit> provider;
    stuck.Make(eventProviderId).As(&provider);
    ASSERT_EQ(Initialize(provider, nameSpace.Get(), initSink.Get()), S_OK);
    ASSERT_EQ(ProvideEvents(provider, sink.Get()), S_OK);
    {
        const ThreadsThatDoNotEnd threads(stuck.Module());
        const windows::KernelHandle released(CreateEventW(nullptr, TRUE, FALSE, nullptr));
        const std::jthread releasing([&provider, &released] {
            provider.Reset();
            SetEvent(released.Get());
        });
        Demand(WaitForSingleObject(released.Get(), 30000) == WAIT_OBJECT_0,
               "the provider waits for ever for a thread that does not end\n");
    }
    EXPECT_EQ(stuck.CanUnloadNow(), S_FALSE);
    // Releases what is kept for the thread: no code of the library runs any more, and its file is
    // deleted.
    FreeLibrary(stuck.Module());
    ExpectThatTheNextOneWorks();
}

TEST_F(MonitorThreadsTest, EndsManyThreadsAtOnce) {
    Begin(30);
    End();
    ExpectThatTheNextOneWorks();
}

TEST_F(MonitorThreadsTest, EndsThreadsWhereverTheyStand) {
    const ShortSleeps sleeps(library.Module());
    std::mt19937 random(1);
    for (int round = 0; round < 4 * rounds; ++round) {
        Begin();
        Sleep(random() % 15);
        End();
    }
    ExpectThatTheNextOneWorks();
}

}  // namespace
}  // namespace qv::test
