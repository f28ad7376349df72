// What --limit refuses: large recordings and MOF files, and classes with many instances.
#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "nlohmann/json.hpp"
#include "tests/qvsata/commands/RunHere.h"
#include "tests/support/TemporaryFile.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr const char* threeWay = "QV_SATAInitiatorTargetLogicalUnitPath";

class LimitTest : public testing::Test {
protected:
    /// Records a desktop with each row so often: the three-way class has twice the cube of it.
    void RecordDisks(std::size_t times) const {
        json host;
        std::ifstream(QV_SOURCE_DIR "/hosts/legacy-ide.json") >> host;
        for (json& classes : host["namespaces"]) {
            for (json& rows : classes) {
                Multiply(rows, times);
            }
        }
        std::ofstream(file_.Path()) << host;
    }

    Ending Run(std::vector<std::string> command) const {
        command.insert(command.end(),
                       {"--host", file_.Path().string(), "--mof", QV_SOURCE_DIR "/mof"});
        return RunHere(command);
    }

    /// Records the same, with all disks on another bus.
    void RecordDisksOnAnotherBus(std::size_t times) const {
        RecordDisks(times);
        json host;
        std::ifstream(file_.Path()) >> host;
        for (json& disk : host["namespaces"]["root\\CIMv2"]["Win32_DiskDrive"]) {
            disk["InterfaceType"] = "SCSI";
        }
        std::ofstream(file_.Path()) << host;
    }

    const TemporaryFile file_;

private:
    static void Multiply(json& rows, std::size_t times) {
        const json once = rows;
        for (std::size_t time = 1; rows.is_array() && time < times; ++time) {
            rows.insert(rows.end(), once.begin(), once.end());
        }
    }
};

TEST_F(LimitTest, RefusesALargerRecording) {
    std::ofstream(file_.Path()) << std::string((1 << 20) + 1, ' ');
    const Ending run = Run({"sources", "--limit", "1"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "qvsata: " + file_.Path().string() + ": larger than 1 MiB (--limit)\n");
}

TEST_F(LimitTest, TakesARecordingOfItsSize) {
    std::ofstream(file_.Path()) << std::string(1 << 20, ' ');
    EXPECT_THAT(Run({"sources", "--limit", "1"}).errors, HasSubstr("not JSON"));
}

TEST_F(LimitTest, RefusesALargerMofFile) {
    std::ofstream(file_.Path()) << std::string((1 << 20) + 1, ' ');
    const Ending run = RunOn("hosts/ahci-desktop.json",
                             {"classes", "--installed", file_.Path().string(), "--limit", "1"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "qvsata: " + file_.Path().string() + ": larger than 1 MiB (--limit)\n");
}

TEST_F(LimitTest, RefusesAClassWithMoreInstances) {
    RecordDisks(8);
    const Ending run = Run({"enumerate", threeWay, "--limit", "1"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors,
              "qvsata: QV_SATAInitiatorTargetLogicalUnitPath has more than 1000 "
              "instances on this host (--limit)\n");
}

TEST_F(LimitTest, RefusesAPathOfSuchAClass) {
    RecordDisks(8);
    const Ending run =
        Run({"get", std::string(threeWay) + ".Initiator=1,Target=2,LogicalUnit=3", "--limit", "1"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, HasSubstr("more than 1000 instances"));
}

// Each disk with the same ID has the partitions of all of them.
TEST_F(LimitTest, RefusesExtentsThatJoinMorePartitions) {
    RecordDisks(40);
    const Ending run = Run({"enumerate", "QV_SATAStorageExtent", "--limit", "1"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors,
              "qvsata: QV_SATAStorageExtent joins more than 1000 partitions to disks on this host "
              "(--limit)\n");
    EXPECT_EQ(Run({"enumerate", "QV_SATADiskDrive", "--limit", "1"}).exitCode, 0);
}

TEST_F(LimitTest, RefusesAssociationsOfSuchExtents) {
    RecordDisks(40);
    const Ending run = Run({"enumerate", "QV_SATADiskDriveStorageExtent", "--limit", "1"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors,
              "qvsata: QV_SATADiskDriveStorageExtent joins more than 1000 partitions to disks on "
              "this host (--limit)\n");
}

TEST_F(LimitTest, AllowsExtentsThatJoinFewerPartitions) {
    RecordDisks(40);
    EXPECT_EQ(Run({"enumerate", "QV_SATAStorageExtent", "--limit", "100"}).exitCode, 0);
}

TEST_F(LimitTest, CountsPartitionsOfPublishedDisksOnly) {
    RecordDisksOnAnotherBus(40);
    EXPECT_EQ(Run({"enumerate", "QV_SATAStorageExtent", "--limit", "1"}).exitCode, 0);
}

TEST_F(LimitTest, NeedsNoMoreThanAFewLinesForManyDisksWithOneId) {
    RecordDisks(10);
    EXPECT_EQ(Run({"disks"}).errors,
              "warning: disks #0, #0, #0, #0, #0, #0, #0, #0 and 2 more have one plug-and-play ID: "
              "their instances have the same keys\n"
              "warning: disks #1, #1, #1, #1, #1, #1, #1, #1 and 2 more have one plug-and-play ID: "
              "their instances have the same keys\n");
    EXPECT_THAT(Run({"explain"}).output,
                AllOf(HasSubstr("#0 BERGAMO B3-080PA and 2 more"),
                      Not(HasSubstr("#0 BERGAMO B3-080PA and #0 BERGAMO B3-080PA"))));
}

TEST_F(LimitTest, DoesNotKeepAPageFromBeingWritten) {
    RecordDisks(8);
    const TemporaryFile page;
    EXPECT_EQ(Run({"report", "--limit", "1", "-o", page.Path().string()}).exitCode, 1);
    std::ostringstream text;
    text << std::ifstream(page.Path()).rdbuf();
    EXPECT_THAT(text.str(), HasSubstr("more than 1000 instances on this host (--limit)"));
}

TEST_F(LimitTest, RefusesVerdictsOnRowsThatNameMoreDisks) {
    RecordDisksOnAnotherBus(23);
    const Ending run = Run({"explain", "--limit", "1"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors, HasSubstr("Win32_PhysicalMedia names disks more than 1000 times on "
                                      "this host (--limit)\n"));
}

TEST_F(LimitTest, HigherAllowsMoreInstances) {
    RecordDisks(8);
    EXPECT_EQ(Run({"enumerate", threeWay, "--limit", "2"}).exitCode, 0);
}

}  // namespace
}  // namespace qv::test
