// Source queries that fail for one cycle, and many events in one cycle.
#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <iostream>

#include "tests/golden/windows/DrillHost.h"
#include "tests/support/HostBuilder.h"
#include "tests/support/windows/ProcessUsage.h"

namespace qv::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string old = "SCSI&DISK&VEN_HALDEN&PROD_HD4000F05&4&1C0B7E25&0&010000";

struct SourceClass {
    const char* nameSpace;
    const char* name;
};

/// The queries of the disk inventory.
class DrillFaultsTest : public ::testing::TestWithParam<SourceClass> {
protected:
    /// Returns a recording in which the query fails.
    std::shared_ptr<const service::RecordedHost> Failing(
        const std::shared_ptr<const service::RecordedHost>& recording) const {
        auto failing = std::make_shared<service::RecordedHost>(*recording);
        failing->FailClass(GetParam().nameSpace, GetParam().name);
        return failing;
    }

    DrillHost::Recordings drill_ = Drill();
};

TEST_P(DrillFaultsTest, RaisesNothing) {
    DrillHost host({drill_[0], Failing(drill_[0]), drill_[0]});
    EXPECT_THAT(EventsOf(host.RunAll()), IsEmpty());
}

TEST_P(DrillFaultsTest, LosesNoChangeOfAStatus) {
    DrillHost host({drill_[0], Failing(drill_[1]), drill_[1]});
    EXPECT_THAT(host.RunCycle(), IsEmpty());
    EXPECT_THAT(host.RunCycle(), IsEmpty());
    EXPECT_THAT(EventsOf(host.RunCycle()), ElementsAre("604 " + old));
}

TEST_P(DrillFaultsTest, LosesNoDiskThatGoes) {
    DrillHost host({drill_[5], Failing(drill_[6]), drill_[6]});
    EXPECT_THAT(host.RunCycle(), IsEmpty());
    EXPECT_THAT(host.RunCycle(), IsEmpty());
    EXPECT_THAT(EventsOf(host.RunCycle()), ElementsAre("613 " + old));
}

TEST_P(DrillFaultsTest, LosesNoDiskThatComes) {
    DrillHost host({drill_[6], Failing(drill_[0]), drill_[0]});
    EXPECT_THAT(host.RunCycle(), IsEmpty());
    EXPECT_THAT(host.RunCycle(), IsEmpty());
    EXPECT_THAT(EventsOf(host.RunCycle()), ElementsAre("600 " + old));
}

INSTANTIATE_TEST_SUITE_P(OfTheInventory, DrillFaultsTest,
                         ::testing::Values(SourceClass{R"(root\CIMv2)", "Win32_DiskDrive"},
                                           SourceClass{R"(root\wmi)",
                                                       "MSStorageDriver_FailurePredictStatus"}),
                         [](const auto& source) { return std::string(source.param.name); });

constexpr int many = 200;

/// Returns a host of many disks with one status.
std::shared_ptr<const service::RecordedHost> ManyDisks(const std::string& status) {
    HostBuilder host;
    for (int index = 0; index < many; ++index) {
        host.Disk(index, R"(IDE\DISK\5&)" + std::to_string(index) + "&E", {{"Status", status}});
    }
    auto recording = std::make_shared<service::RecordedHost>(host.Build());
    for (int index = 0; index < many; ++index) {
        recording->AddRow(R"(root\wmi)", "MSStorageDriver_FailurePredictStatus",
                          {{"InstanceName", R"(IDE\Disk\5&)" + std::to_string(index) + "&E_0"},
                           {"PredictFailure", false}});
    }
    return recording;
}

/// Returns an event for each disk, in their order.
std::vector<std::string> EventOfEach(const std::string& eventId) {
    std::vector<std::string> events;
    for (int index = 0; index < many; ++index) {
        events.push_back(eventId + " IDE&DISK&5&" + std::to_string(index) + "&E");
    }
    return events;
}

TEST(DrillFaults, ManyDisksThatChangeAtOnceAreEachAnnouncedOnce) {
    DrillHost host({ManyDisks("OK"), ManyDisks("Error"), ManyDisks("OK"), ManyDisks("OK")});
    ASSERT_THAT(host.RunCycle(), IsEmpty());
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(EventsOf(host.RunCycle()), EventOfEach("603"));
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin;
    const ProcessUsage once = ProcessUsage::Now();
    EXPECT_EQ(EventsOf(host.RunCycle()), EventOfEach("602"));
    const ProcessUsage twice = ProcessUsage::Now();
    EXPECT_THAT(host.RunCycle(), IsEmpty());
    std::cout << many << " events in " << elapsed.count() << " s; with as many once more, "
              << once.heapBytes / 1024 << " KiB of heap become " << twice.heapBytes / 1024
              << " KiB, " << once.handles << " handles become " << twice.handles << '\n';
}

}  // namespace
}  // namespace qv::test
