#include "events/CSATAHBA_EVENTS.h"

#include "tests/support/EventHost.h"

namespace qv::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Records the events as "event device".
class ReceiverStandIn : public EventReceiver {
public:
    explicit ReceiverStandIn(const LockStandIn& lock) : lock_(lock) {}

    void Receive(const InstanceRecord& event) override {
        events.push_back(GetPropertyEntry(event, "EventID").value + " " +
                         GetPropertyEntry(event, "DeviceID").value);
        records.push_back(event);
        lockHeld = lockHeld || lock_.held;
    }

    /// Returns the events since the last call.
    std::vector<std::string> Take() { return std::exchange(events, {}); }

    std::vector<std::string> events;
    std::vector<InstanceRecord> records;
    bool lockHeld = false;

private:
    const LockStandIn& lock_;
};

class CSATAHBA_EVENTSTest : public testing::Test {
protected:
    /// Runs a first cycle without disks, which leaves no event and no log line.
    void SetUp() override {
        host.SetDisks({});
        monitor.RunCycle();
        monitor.RegisterReceiver(receiver);
        host.asked.clear();
    }

    /// Returns the events of the next cycle, in which the host has these disks.
    std::vector<std::string> Cycle(
        const std::vector<std::pair<std::string, std::string>>& idsAndStatuses) {
        host.SetDisks(idsAndStatuses);
        monitor.RunCycle();
        return receiver.Take();
    }

    EventHost host;
    ClockStandIn clock;
    LockStandIn lock;
    DiskInventory inventory{host, host, clock, lock};
    CSATAHBA_EVENTS monitor{inventory, clock, host};
    ReceiverStandIn receiver{lock};
};

TEST_F(CSATAHBA_EVENTSTest, TellTheStoryOfADisk) {
    EXPECT_THAT(Cycle({{"A", "OK"}}), ElementsAre("600 A"));
    EXPECT_THAT(Cycle({{"A", "OK"}}), IsEmpty());
    EXPECT_THAT(Cycle({{"A", "Degraded"}}), ElementsAre("604 A"));
    EXPECT_THAT(Cycle({{"A", "Degraded"}}), IsEmpty());
    EXPECT_THAT(Cycle({{"A", "Pred Fail"}}), ElementsAre("605 A"));
    EXPECT_THAT(Cycle({{"A", "Error"}}), ElementsAre("603 A"));
    EXPECT_THAT(Cycle({{"A", "OK"}}), ElementsAre("602 A"));
    EXPECT_THAT(Cycle({}), ElementsAre("613 A"));
    EXPECT_THAT(Cycle({}), IsEmpty());
    EXPECT_THAT(Cycle({{"B", "OK"}}), ElementsAre("600 B"));
    EXPECT_THAT(Cycle({{"B", "No Contact"}}), ElementsAre("601 B"));
    EXPECT_THAT(Cycle({{"B", "Unheard of"}}), IsEmpty());
    EXPECT_THAT(Cycle({{"A", "OK"}, {"B", "Service"}}), ElementsAre("600 A", "602 B"));
}

TEST_F(CSATAHBA_EVENTSTest, AreRaisedForEveryDiskThatIsThereAtTheStart) {
    EXPECT_THAT(Cycle({{"A", "OK"}, {"B", "Error"}}), ElementsAre("600 A", "600 B"));
}

TEST_F(CSATAHBA_EVENTSTest, AreNotRaisedForDisksWithoutFailurePrediction) {
    host.Answer(disksQuery, {IdeDisk("A")});
    host.Answer(predictionsQuery, {});
    monitor.RunCycle();
    EXPECT_THAT(receiver.events, IsEmpty());
}

TEST_F(CSATAHBA_EVENTSTest, OfACycleWithAFailedQueryAreRaisedInTheNextGoodOne) {
    Cycle({{"A", "OK"}, {"B", "OK"}});
    host.SetDisks({{"A", "Error"}, {"C", "OK"}});
    host.Fail(disksQuery);
    monitor.RunCycle();
    monitor.RunCycle();
    EXPECT_THAT(receiver.Take(), IsEmpty());
    EXPECT_THAT(Cycle({{"A", "Error"}, {"C", "OK"}}), ElementsAre("603 A", "600 C", "613 B"));
}

TEST_F(CSATAHBA_EVENTSTest, OfACycleWithoutFailurePredictionAreRaisedInTheNextGoodOne) {
    Cycle({{"A", "OK"}});
    host.SetDisks({});
    host.Fail(predictionsQuery);
    monitor.RunCycle();
    EXPECT_THAT(receiver.Take(), IsEmpty());
    EXPECT_THAT(Cycle({}), ElementsAre("613 A"));
}

TEST_F(CSATAHBA_EVENTSTest, OfACycleThatSawNothingChangeAreNone) {
    Cycle({{"A", "OK"}});
    host.SetDisks({{"A", "Error"}});
    host.Fail(disksQuery);
    monitor.RunCycle();
    EXPECT_THAT(Cycle({{"A", "OK"}}), IsEmpty());
}

TEST_F(CSATAHBA_EVENTSTest, ComeFromADoubleLookAtTheDisksUnderTheLockEachTime) {
    lock.waits.clear();
    lock.releases = 0;
    monitor.RunCycle();
    EXPECT_THAT(host.asked, SizeIs(4));
    EXPECT_THAT(lock.waits,
                ElementsAre(std::chrono::milliseconds(100), std::chrono::milliseconds(100)));
    EXPECT_EQ(lock.releases, 2);
}

TEST_F(CSATAHBA_EVENTSTest, AreHandedOverWhileTheLockIsFree) {
    Cycle({{"A", "OK"}});
    EXPECT_FALSE(receiver.lockHeld);
}

TEST_F(CSATAHBA_EVENTSTest, CarryTheTimeAtWhichTheyAreRaised) {
    clock.local = {2025, 1, 2, 3, 4, 5, 6};
    Cycle({{"A", "OK"}});
    ASSERT_THAT(receiver.records, SizeIs(1));
    EXPECT_EQ(GetPropertyEntry(receiver.records.front(), "EventTime").value,
              "20250102030405.006000-000");
}

TEST_F(CSATAHBA_EVENTSTest, AreLoggedOneByOne) {
    host.log.clear();
    Cycle({{"A", "OK"}, {"B", "OK"}});
    Cycle({{"B", "OK"}});
    const std::string line =
        "CSATAHBA_EVENTS::EventThreadCheckforEvents| "
        "SendIndication for EventID = ";
    EXPECT_THAT(host.log, ElementsAre(std::pair(3, line + "600"), std::pair(3, line + "600"),
                                      std::pair(3, line + "613")));
}

TEST_F(CSATAHBA_EVENTSTest, AreLoggedAtEveryLevelBelowFour) {
    const auto logAt = [this](int level) {
        host.log.clear();
        host.level = level;
        Cycle({{std::to_string(level), "OK"}});
        return host.log;
    };
    EXPECT_THAT(logAt(1), testing::Not(IsEmpty()));
    EXPECT_THAT(logAt(2), testing::Not(IsEmpty()));
    EXPECT_THAT(logAt(3), testing::Not(IsEmpty()));
}

TEST_F(CSATAHBA_EVENTSTest, AreRaisedWithoutALineFromLevelFourOn) {
    host.log.clear();
    host.level = 4;
    EXPECT_THAT(Cycle({{"A", "OK"}}), testing::Not(IsEmpty()));
    host.level = 5;
    EXPECT_THAT(Cycle({{"B", "OK"}}), testing::Not(IsEmpty()));
    host.level = 1024;
    EXPECT_THAT(Cycle({{"C", "OK"}}), testing::Not(IsEmpty()));
    EXPECT_THAT(host.log, IsEmpty());
}

/// Fails at the first request for the time.
class StumblingClock : public ClockStandIn {
public:
    platform::LocalTime Local() const override {
        return std::exchange(stumbles_, false) ? throw std::bad_alloc() : ClockStandIn::Local();
    }

private:
    mutable bool stumbles_ = true;
};

/// Runs out of memory at its first line.
class StumblingLog : public platform::LogPort {
public:
    LogLevel Level() const override { return LogLevel::information; }
    void Write(LogLevel, std::string_view text) override {
        if (std::exchange(stumbles_, false)) {
            throw std::bad_alloc();
        }
        lines.emplace_back(text);
    }

    std::vector<std::string> lines;

private:
    bool stumbles_ = true;
};

TEST_F(CSATAHBA_EVENTSTest, AreRaisedBehindOneThatCouldNotBeBuilt) {
    StumblingClock stumblingClock;
    CSATAHBA_EVENTS stumbling(inventory, stumblingClock, host);
    stumbling.RegisterReceiver(receiver);
    host.SetDisks({{"A", "OK"}, {"B", "OK"}, {"C", "OK"}});
    stumbling.RunCycle();
    EXPECT_THAT(receiver.Take(), ElementsAre("600 B", "600 C"));
    stumbling.RunCycle();
    EXPECT_THAT(receiver.Take(), IsEmpty());
}

/// Memory runs out in one of the queries.
class ScarceQueries : public platform::QueryPort {
public:
    ScarceQueries(const platform::QueryPort& host, int failing) : host_(host), left_(failing) {}

    Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                       platform::Rows& rows) const override {
        if (--left_ == 0) {
            throw std::bad_alloc();
        }
        return host_.RunWqlQuery(nameSpace, query, rows);
    }

private:
    const platform::QueryPort& host_;
    mutable int left_;
};

class CSATAHBA_EVENTSOfScarceMemory : public CSATAHBA_EVENTSTest,
                                      public testing::WithParamInterface<int> {};

TEST_P(CSATAHBA_EVENTSOfScarceMemory, AreRaisedInTheNextCycle) {
    const ScarceQueries queries(host, GetParam());
    DiskInventory scarce(queries, host, clock, lock);
    CSATAHBA_EVENTS stumbling(scarce, clock, host);
    stumbling.RegisterReceiver(receiver);
    host.SetDisks({{"A", "OK"}});
    EXPECT_THROW(stumbling.RunCycle(), std::bad_alloc);
    EXPECT_THAT(receiver.Take(), IsEmpty());
    stumbling.RunCycle();
    EXPECT_THAT(receiver.Take(), ElementsAre("600 A"));
}

// A cycle runs four queries: it rebuilds the inventory twice.
INSTANTIATE_TEST_SUITE_P(Queries, CSATAHBA_EVENTSOfScarceMemory, testing::Values(1, 2, 3, 4));

TEST_F(CSATAHBA_EVENTSTest, AreRaisedThoughOneCouldNotBeLogged) {
    StumblingLog log;
    CSATAHBA_EVENTS stumbling(inventory, clock, log);
    stumbling.RegisterReceiver(receiver);
    host.SetDisks({{"A", "OK"}, {"B", "OK"}});
    stumbling.RunCycle();
    EXPECT_THAT(receiver.Take(), ElementsAre("600 A", "600 B"));
    EXPECT_THAT(log.lines, ElementsAre("CSATAHBA_EVENTS::EventThreadCheckforEvents| "
                                       "SendIndication for EventID = 600"));
}

TEST_F(CSATAHBA_EVENTSTest, WithoutAReceiverAreLost) {
    CSATAHBA_EVENTS deaf(inventory, clock, host);
    host.SetDisks({{"A", "OK"}});
    deaf.RunCycle();
    EXPECT_THAT(host.log, SizeIs(1));
    EXPECT_THAT(Cycle({{"A", "OK"}}), IsEmpty());
}

TEST_F(CSATAHBA_EVENTSTest, GoToTheReceiverThatWasRegisteredLast) {
    ReceiverStandIn later(lock);
    monitor.RegisterReceiver(later);
    EXPECT_THAT(Cycle({{"A", "OK"}}), IsEmpty());
    EXPECT_THAT(later.events, ElementsAre("600 A"));
}

TEST_F(CSATAHBA_EVENTSTest, OfAPassOnItsOwnAreComparedWithThePreviousCycle) {
    Cycle({{"A", "OK"}});
    host.SetDisks({{"A", "Error"}});
    EXPECT_EQ(monitor.EventThreadCheckforEvents(), 0);
    EXPECT_THAT(receiver.Take(), ElementsAre("603 A"));
    // The previous list is unchanged: only a cycle replaces it.
    EXPECT_EQ(monitor.EventThreadCheckforEvents(), 0);
    EXPECT_THAT(receiver.Take(), ElementsAre("603 A"));
}

TEST_F(CSATAHBA_EVENTSTest, OfADiskThatAppearedAreNotRepeatedByAPassOnItsOwn) {
    host.SetDisks({{"A", "OK"}});
    monitor.EventThreadCheckforEvents();
    monitor.EventThreadCheckforEvents();
    EXPECT_THAT(receiver.Take(), ElementsAre("600 A"));
}

std::vector<std::pair<std::string, std::string>> ThousandDisks(const std::string& status) {
    std::vector<std::pair<std::string, std::string>> disks;
    for (int index = 1000; index < 2000; ++index) {
        disks.emplace_back(R"(IDE\DISK)" + std::to_string(index), status);
    }
    return disks;
}

TEST_F(CSATAHBA_EVENTSTest, AreRaisedForAThousandDisksThatChangeAtOnce) {
    EXPECT_THAT(Cycle(ThousandDisks("OK")), SizeIs(1000));
    const auto events = Cycle(ThousandDisks("Pred Fail"));
    ASSERT_THAT(events, SizeIs(1000));
    EXPECT_EQ(events.front(), "605 IDE&DISK1000");
    EXPECT_EQ(events.back(), "605 IDE&DISK1999");
    EXPECT_THAT(Cycle({}), SizeIs(1000));
}

TEST(CSATAHBA_EVENTS, MonitorRunsFromItsFirstCycleOn) {
    EventHost host;
    ClockStandIn clock;
    LockStandIn lock;
    DiskInventory inventory(host, host, clock, lock);
    CSATAHBA_EVENTS monitor(inventory, clock, host);
    EXPECT_FALSE(monitor.Running());
    monitor.RunCycle();
    EXPECT_TRUE(monitor.Running());
}

TEST_F(CSATAHBA_EVENTSTest, ComeEveryThirtySeconds) {
    EXPECT_EQ(CSATAHBA_EVENTS::interval, std::chrono::milliseconds(30000));
}

TEST_F(CSATAHBA_EVENTSTest, EndWithALineBelowLevelFour) {
    host.log.clear();
    monitor.LogThreadExit();
    EXPECT_THAT(host.log,
                ElementsAre(std::pair(3, "CSATAHBA_EVENTS::EventThreadExit| EventThreadExit:...")));
    host.level = 4;
    monitor.LogThreadExit();
    EXPECT_THAT(host.log, SizeIs(1));
}

TEST_F(CSATAHBA_EVENTSTest, EndThoughTheLineOfTheirEndIsLost) {
    StumblingLog log;
    EXPECT_NO_THROW(CSATAHBA_EVENTS(inventory, clock, log).LogThreadExit());
    EXPECT_THAT(log.lines, IsEmpty());
}

}  // namespace
}  // namespace qv::test
