// The end of a provider whose threads stand anywhere.
#include <random>

#include "tests/windows/events/EventTest.h"

namespace qv::test {
namespace {

constexpr int rounds = 10;

class DestructionTest : public EventTest {
protected:
    void SetUp() override {
        EventTest::SetUp();
        settings.reset();
    }

    /// A provider that is asked for events so often. Two threads can hide a change from each other;
    /// a test that waits for an event starts one.
    void Begin(int subscriptions = 2) {
        Make(init);
        ASSERT_EQ(Initialize(), S_OK);
        for (int subscription = 0; subscription < subscriptions; ++subscription) {
            ASSERT_EQ(ProvideEvents(sink.Get()), S_OK);
        }
    }

    /// Ends it: no thread is left.
    void End() {
        init.Reset();
        ASSERT_EQ(ThreadCount(), threadsBefore);
    }

    /// Whether a new provider finds out and delivers that a disk appeared.
    void ExpectThatTheNextOneWorks() {
        const ShortPauses pauses(library.Module());
        source.gate.Open();
        sink = windows::MakeObject<EventSink>();
        source.SetLooks({{}});
        Begin(1);
        source.SetLooks({{{L"Next"}}});
        EXPECT_TRUE(sink->HasReceived(1));
        End();
    }
};

TEST_F(DestructionTest, EndsThreadsThatHaveJustStarted) {
    for (int round = 0; round < rounds; ++round) {
        Begin();
        End();
    }
    ExpectThatTheNextOneWorks();
}

TEST_F(DestructionTest, EndsThreadsThatSleep) {
    for (int round = 0; round < rounds; ++round) {
        const std::size_t looks = source.LookCount();
        Begin();
        while (source.LookCount() < looks + 4) {
            Sleep(1);
        }
        Sleep(5);
        End();
    }
    ExpectThatTheNextOneWorks();
}

TEST_F(DestructionTest, EndsAThreadThatHoldsTheInventorysLockWhileItsQueryRuns) {
    // The first subscription looks at the disks itself.
    Begin();
    End();
    for (int round = 0; round < rounds; ++round) {
        source.gate.Close();
        Begin();
        ASSERT_TRUE(source.gate.SomebodyCame());
        End();
    }
    ExpectThatTheNextOneWorks();
}

TEST_F(DestructionTest, EndsThreadsThatWaitForTheInventorysLock) {
    Begin();
    End();
    const windows::KernelHandle lock(CreateMutexW(nullptr, FALSE, L"DiskDriveListCurrMutex"));
    {
        const windows::HeldMutex held(lock.Get());
        for (int round = 0; round < rounds; ++round) {
            Begin();
            Sleep(20);
            End();
        }
    }
    ExpectThatTheNextOneWorks();
}

TEST_F(DestructionTest, EndsAThreadThatDelivers) {
    const ShortPauses pauses(library.Module());
    for (int round = 0; round < rounds; ++round) {
        sink = windows::MakeObject<EventSink>();
        sink->gate.Close();
        Begin(1);
        source.SetLooks({{{std::to_wstring(round)}}});
        ASSERT_TRUE(sink->gate.SomebodyCame());
        End();
    }
    ExpectThatTheNextOneWorks();
}

TEST_F(DestructionTest, EndsManyThreadsAtOnce) {
    Begin(30);
    End();
    ExpectThatTheNextOneWorks();
}

TEST_F(DestructionTest, EndsThreadsWhereverTheyStand) {
    const ShortPauses pauses(library.Module());
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
