#include "source/DiskInventory.h"

#include "tests/support/EventHost.h"

namespace qv::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;

class DiskInventoryTest : public testing::Test {
protected:
    DiskInventoryTest() {
        host.Answer(disksQuery, {});
        host.Answer(predictionsQuery, {});
    }

    /// Returns the inventory of one disk row with these failure-prediction rows.
    DiskList DisksOf(Properties disk, std::vector<Properties> predictions) {
        host.Answer(disksQuery, {std::move(disk)});
        host.Answer(predictionsQuery, std::move(predictions));
        inventory.RefreshDiskInventoryNow();
        return inventory.Disks();
    }

    std::size_t Rebuilds() const { return host.asked.size() / 2; }

    EventHost host;
    ClockStandIn clock;
    LockStandIn lock;
    DiskInventory inventory{host, host, clock, lock};
};

TEST_F(DiskInventoryTest, DescribesADiskByItsRow) {
    const DiskList disks = DisksOf(IdeDisk(R"(ide\diskx\5&1)", "Pred Fail"),
                                   {Prediction("X"), Prediction(R"(IDE\DISKX\5&1)")});
    EXPECT_THAT(disks, ElementsAre(DiskRecord{"QV_WinComputerSystem", "QV_SATADiskDrive",
                                              "host.example.org", "A caption", "A text",
                                              R"(Model of ide\diskx\5&1)", "A text", 5, "Pred Fail",
                                              "IDE&DISKX&5&1", "Pred Fail"}));
}

TEST_F(DiskInventoryTest, DescribesTheFailurePredictionOfEachDisk) {
    DisksOf(IdeDisk(R"(IDE\DISKX\5&1)"), {{{"InstanceName", std::string(R"(ide\diskx\5&1_0)")},
                                           {"PredictFailure", std::string("some text")}}});
    EXPECT_THAT(inventory.FailurePredictions(),
                ElementsAre(FailurePredictRecord{R"(IDE\DISKX\5&1_0)", "some text"}));
}

TEST_F(DiskInventoryTest, LeavesAFailurePredictionThatIsNoTextEmpty) {
    DisksOf(IdeDisk("A"), {{{"InstanceName", std::string("A_0")}, {"PredictFailure", true}}});
    EXPECT_THAT(inventory.FailurePredictions(), ElementsAre(FailurePredictRecord{"A_0", ""}));
}

TEST_F(DiskInventoryTest, LeavesWhatADiskDoesNotSayEmpty) {
    const DiskList disks =
        DisksOf({{"InterfaceType", std::string("IDE")}, {"PNPDeviceID", std::string("A")}},
                {Prediction("A")});
    EXPECT_THAT(disks, ElementsAre(DiskRecord{"QV_WinComputerSystem", "QV_SATADiskDrive",
                                              "host.example.org", "", "", "", "", 0, "", "A", ""}));
}

TEST_F(DiskInventoryTest, LooksWhereTheOperatingSystemKeepsItsDisks) {
    inventory.RefreshDiskInventoryNow();
    EXPECT_THAT(host.asked,
                ElementsAre(R"(root\CIMv2: SELECT * FROM Win32_DiskDrive)",
                            R"(root\wmi: SELECT * FROM MSStorageDriver_FailurePredictStatus)"));
}

TEST_F(DiskInventoryTest, KeepsTheOrderOfTheSourceRows) {
    host.SetDisks({{"B", "OK"}, {"A", "OK"}, {"C", "OK"}});
    inventory.RefreshDiskInventoryNow();
    EXPECT_THAT(inventory.Disks(),
                ElementsAre(Field(&DiskRecord::deviceId, "B"), Field(&DiskRecord::deviceId, "A"),
                            Field(&DiskRecord::deviceId, "C")));
    EXPECT_THAT(inventory.FailurePredictions(),
                ElementsAre(Field(&FailurePredictRecord::instanceName, "B_0"),
                            Field(&FailurePredictRecord::instanceName, "A_0"),
                            Field(&FailurePredictRecord::instanceName, "C_0")));
    EXPECT_EQ(inventory.MatchedDisks(), 3);
}

TEST_F(DiskInventoryTest, IsEmptyOnAHostWithoutFailurePrediction) {
    EXPECT_THAT(DisksOf(IdeDisk("A"), {}), IsEmpty());
    EXPECT_EQ(inventory.MatchedDisks(), 0);
}

TEST_F(DiskInventoryTest, HoldsNoDiskOfAnotherInterface) {
    const auto diskOfInterface = [](const char* type) {
        Properties disk = IdeDisk("A");
        disk["InterfaceType"] = type;
        return disk;
    };
    EXPECT_THAT(DisksOf(diskOfInterface("SCSI"), {Prediction("A")}), IsEmpty());
    EXPECT_THAT(DisksOf(diskOfInterface("USB"), {Prediction("A")}), IsEmpty());
    EXPECT_THAT(DisksOf(diskOfInterface("ide"), {Prediction("A")}), IsEmpty());
    EXPECT_THAT(DisksOf(diskOfInterface(""), {Prediction("A")}), IsEmpty());
}

TEST_F(DiskInventoryTest, HoldsNoDiskWhoseInterfaceCannotBeRead) {
    Properties disk = IdeDisk("A");
    disk.erase("InterfaceType");
    EXPECT_THAT(DisksOf(disk, {Prediction("A")}), IsEmpty());
}

TEST_F(DiskInventoryTest, MatchesADeviceIdAnywhereInAnInstanceNameWhateverTheCase) {
    EXPECT_THAT(DisksOf(IdeDisk(R"(IDE\DISKX\5&1)"), {Prediction(R"(xx\ide\diskx\5&1)")}),
                SizeIs(1));
    EXPECT_THAT(DisksOf(IdeDisk(R"(ide\diskx\5&1)"), {Prediction(R"(IDE\DISKX\5&1)")}), SizeIs(1));
}

TEST_F(DiskInventoryTest, DoesNotMatchAnInstanceNameThatEndsWithinTheDeviceId) {
    EXPECT_THAT(DisksOf(IdeDisk(R"(IDE\DISKX\5&1&2)"), {Prediction(R"(IDE\DISKX\5&1)")}),
                IsEmpty());
}

TEST_F(DiskInventoryTest, ListsADiskOncePerMatchingFailurePrediction) {
    const DiskList disks =
        DisksOf(IdeDisk("A"), {Prediction("A"), Prediction("B"), Prediction("XA")});
    EXPECT_THAT(disks, SizeIs(2));
    EXPECT_THAT(inventory.FailurePredictions(),
                ElementsAre(Field(&FailurePredictRecord::instanceName, "A_0"),
                            Field(&FailurePredictRecord::instanceName, "XA_0")));
    EXPECT_EQ(inventory.MatchedDisks(), 2);
}

TEST_F(DiskInventoryTest, MatchesADiskWithoutADeviceIdWithEveryFailurePrediction) {
    EXPECT_THAT(DisksOf(IdeDisk(""), {Prediction("A"), Prediction("B")}), SizeIs(2));
}

TEST_F(DiskInventoryTest, CallsAHostWithoutANameNotAvailable) {
    host.names.clear();
    EXPECT_THAT(DisksOf(IdeDisk("A"), {Prediction("A")}),
                ElementsAre(Field(&DiskRecord::systemName, "Not Available")));
}

TEST_F(DiskInventoryTest, GivesAStatusTextThatItDoesNotKnowTheCodeZero) {
    EXPECT_THAT(DisksOf(IdeDisk("A", "Starting"), {Prediction("A")}),
                ElementsAre(testing::AllOf(Field(&DiskRecord::statusCode, 0U),
                                           Field(&DiskRecord::statusDescriptions, "Starting"),
                                           Field(&DiskRecord::status, "Starting"))));
}

class DiskInventoryFailureTest : public DiskInventoryTest,
                                 public testing::WithParamInterface<const char*> {};

TEST_P(DiskInventoryFailureTest, KeepsWhatItHas) {
    host.SetDisks({{"A", "OK"}});
    inventory.RefreshDiskInventoryNow();
    host.SetDisks({{"B", "OK"}, {"C", "OK"}});
    host.Fail(GetParam());
    EXPECT_EQ(inventory.RefreshDiskInventoryNow(), 0);
    EXPECT_THAT(inventory.Disks(), ElementsAre(Field(&DiskRecord::deviceId, "A")));
    EXPECT_THAT(inventory.FailurePredictions(), SizeIs(1));
    EXPECT_EQ(inventory.MatchedDisks(), 1);
}

INSTANTIATE_TEST_SUITE_P(EachQuery, DiskInventoryFailureTest,
                         testing::Values(disksQuery, predictionsQuery), [](const auto& query) {
                             return query.param == disksQuery ? "Disks" : "Predictions";
                         });

TEST_F(DiskInventoryTest, ReplacesWhatItHasWhenThereIsNothingAnyMore) {
    host.SetDisks({{"A", "OK"}});
    inventory.RefreshDiskInventoryNow();
    host.SetDisks({});
    inventory.RefreshDiskInventoryNow();
    EXPECT_THAT(inventory.Disks(), IsEmpty());
    EXPECT_THAT(inventory.FailurePredictions(), IsEmpty());
    EXPECT_EQ(inventory.MatchedDisks(), 0);
}

TEST_F(DiskInventoryTest, OwnsNothingAndAsksNothingBeforeItIsUsed) {
    EXPECT_THAT(host.asked, IsEmpty());
    EXPECT_THAT(lock.waits, IsEmpty());
    EXPECT_THAT(inventory.Disks(), IsEmpty());
    EXPECT_EQ(inventory.MatchedDisks(), 0);
    EXPECT_EQ(inventory.RefreshTimeout(), 0U);
}

TEST_F(DiskInventoryTest, WaitsForItsLockInSlicesUntilItHasIt) {
    lock.timeouts = 5;
    EXPECT_EQ(inventory.RefreshDiskInventoryNow(), 0);
    EXPECT_THAT(lock.waits, SizeIs(6));
    EXPECT_THAT(lock.waits, Each(std::chrono::milliseconds(100)));
    EXPECT_EQ(Rebuilds(), 1U);
    EXPECT_EQ(lock.releases, 1);
}

class LockWatch : public platform::QueryPort {
public:
    explicit LockWatch(const LockStandIn& lock) : lock_(lock) {}

    Status RunWqlQuery(std::string_view, std::string_view, platform::Rows&) const override {
        if (fails) {
            throw std::bad_alloc();
        }
        heldDuringQuery.push_back(lock_.held);
        return Status::noError;
    }

    mutable std::vector<bool> heldDuringQuery;
    bool fails = false;

private:
    const LockStandIn& lock_;
};

TEST_F(DiskInventoryTest, HoldsItsLockWhileItRebuildsAndNotLonger) {
    const LockWatch watch(lock);
    DiskInventory watched(watch, host, clock, lock);
    watched.RefreshDiskInventoryNow();
    EXPECT_THAT(watch.heldDuringQuery, ElementsAre(true, true));
    EXPECT_FALSE(lock.held);
}

TEST_F(DiskInventoryTest, GivesItsLockUpWhenThereIsNoMemory) {
    LockWatch watch(lock);
    watch.fails = true;
    DiskInventory watched(watch, host, clock, lock);
    EXPECT_THROW(watched.RefreshDiskInventoryNow(), std::bad_alloc);
    EXPECT_FALSE(lock.held);
}

TEST_F(DiskInventoryTest, IsStaleAtFirst) {
    inventory.RefreshDiskInventoryIfStale(false);
    EXPECT_EQ(Rebuilds(), 1U);
}

TEST_F(DiskInventoryTest, IsNotStaleForThirtySeconds) {
    inventory.RefreshDiskInventoryIfStale(false);
    clock.seconds += 30;
    inventory.RefreshDiskInventoryIfStale(false);
    EXPECT_EQ(Rebuilds(), 1U);
}

TEST_F(DiskInventoryTest, IsStaleAfterThirtyOneSeconds) {
    inventory.RefreshDiskInventoryIfStale(false);
    clock.seconds += 31;
    inventory.RefreshDiskInventoryIfStale(false);
    EXPECT_EQ(Rebuilds(), 2U);
}

TEST_F(DiskInventoryTest, IsLeftToARunningMonitor) {
    inventory.RefreshDiskInventoryIfStale(false);
    clock.seconds += 31;
    inventory.RefreshDiskInventoryIfStale(true);
    EXPECT_EQ(Rebuilds(), 1U);
}

TEST_F(DiskInventoryTest, CountsARefreshThatWasLeftToTheMonitorAsDone) {
    inventory.RefreshDiskInventoryIfStale(true);
    inventory.RefreshDiskInventoryIfStale(false);
    EXPECT_EQ(Rebuilds(), 0U);
    clock.seconds += 31;
    inventory.RefreshDiskInventoryIfStale(false);
    EXPECT_EQ(Rebuilds(), 1U);
}

TEST_F(DiskInventoryTest, DoesNotCountTheMonitorsRefreshesForItsAge) {
    inventory.RefreshDiskInventoryIfStale(false);
    clock.seconds += 31;
    inventory.RefreshDiskInventoryNow();
    inventory.RefreshDiskInventoryIfStale(false);
    EXPECT_EQ(Rebuilds(), 3U);
}

TEST_F(DiskInventoryTest, CountsAFailedRefreshForItsAge) {
    host.Fail(disksQuery);
    inventory.RefreshDiskInventoryIfStale(false);
    clock.seconds += 30;
    inventory.RefreshDiskInventoryIfStale(false);
    EXPECT_EQ(Rebuilds(), 1U);
}

TEST_F(DiskInventoryTest, KeepsTheDisksOfThePreviousCycle) {
    host.SetDisks({{"A", "OK"}});
    inventory.RefreshDiskInventoryNow();
    inventory.KeepDisksAsPrevious();
    host.SetDisks({{"B", "OK"}});
    inventory.RefreshDiskInventoryNow();
    const auto lists = inventory.CompareWithPrevious(
        [](const DiskList& current, DiskList& previous) { return std::pair(current, previous); });
    EXPECT_THAT(lists.first, ElementsAre(Field(&DiskRecord::deviceId, "B")));
    EXPECT_THAT(lists.second, ElementsAre(Field(&DiskRecord::deviceId, "A")));
}

TEST_F(DiskInventoryTest, KeepsTheConfiguredRefreshTimeout) {
    inventory.SetRefreshTimeout(6);
    EXPECT_EQ(inventory.RefreshTimeout(), 6U);
}

TEST_F(DiskInventoryTest, IsReadWithoutACache) {
    host.Answer(disksQuery, {IdeDisk("A"), IdeDisk("B")});
    host.Answer(predictionsQuery, {Prediction("B")});
    const std::optional<WatchedDisks> watched = ReadWatchedDisks(host, host);
    EXPECT_THAT(watched->disks, ElementsAre(Field(&DiskRecord::deviceId, "B")));
    EXPECT_THAT(watched->predictions,
                ElementsAre(Field(&FailurePredictRecord::instanceName, "B_0")));
    EXPECT_THAT(inventory.Disks(), IsEmpty());
}

}  // namespace
}  // namespace qv::test
