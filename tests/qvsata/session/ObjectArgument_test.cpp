#include <gmock/gmock.h>

#include "tests/qvsata/commands/RunHere.h"

namespace qv::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* mixed = "hosts/mixed-buses-failing.json";

TEST(ObjectArgument, NamesAPublishedDiskByItsDriveNumber) {
    const Ending run = RunOn(mixed, {"get", "--disk", "2"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.output, HasSubstr("= \\\\.\\PHYSICALDRIVE2\n"));
}

TEST(ObjectArgument, NamesTheDiskWhoseNeighboursAreAskedFor) {
    EXPECT_THAT(
        RunOn(mixed, {"associators", "--disk", "2", "--result", "QV_SATAStorageExtent"}).output,
        HasSubstr("= Disk #2, Partition #1\n"));
    EXPECT_THAT(
        RunOn(mixed, {"references", "--disk", "2", "--assoc", "QV_SATADiskDriveStorageExtent"})
            .output,
        StartsWith("QV_SATADiskDriveStorageExtent.Antecedent="));
}

struct Refused {
    const char* name;
    std::vector<std::string> command;
    int exitCode;
    const char* errors;
};

class RefusedObjectArgument : public testing::TestWithParam<Refused> {};

TEST_P(RefusedObjectArgument, SaysWhy) {
    const Ending run = RunOn(mixed, GetParam().command);
    EXPECT_EQ(run.exitCode, GetParam().exitCode);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, GetParam().errors);
}

INSTANTIATE_TEST_SUITE_P(
    Commands, RefusedObjectArgument,
    testing::Values(
        Refused{"AnUnpublishedDisk",
                {"get", "--disk", "1"},
                1,
                "qvsata: disk #1 is not published: bus is SCSI\n"},
        Refused{"NoSuchDisk",
                {"references", "--disk", "9"},
                1,
                "qvsata: disk #9: there is no such disk\n"},
        Refused{"NoObject",
                {"get"},
                2,
                "qvsata: give the PATH of an object or --disk N (see --help)\n"},
        Refused{"PathAndDisk",
                {"get", "QV_SATADiskDrive", "--disk", "1"},
                2,
                "qvsata: PATH excludes --disk (see --help)\n"},
        Refused{"AKeyThatNothingHas",
                {"get", "QV_SATADiskDrive.DeviceID='nothing'"},
                1,
                "qvsata: QV_SATADiskDrive.DeviceID='nothing': not found (0x80041002)\n"},
        Refused{"APartOfAKey",
                {"get", "QV_SATAPortController.DeviceID='dev_a352'"},
                1,
                "paths that would fit:\n"
                "    QV_SATAPortController.CreationClassName=\"QV_SATAPortController\",DeviceID="
                "\"PCI&VEN_1AF7&DEV_A352&SUBSYS_085A1028&REV_10&3&11583659&1&B8\","
                "SystemCreationClassName=\"QV_WinComputerSystem\","
                "SystemName=\"backup-node1.example.org\"\n"
                "qvsata: QV_SATAPortController.DeviceID='dev_a352': not found (0x80041002)\n"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace qv::test
