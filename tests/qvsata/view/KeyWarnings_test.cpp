#include "qvsata/view/KeyWarnings.h"

#include <gtest/gtest.h>

#include "tests/qvsata/view/OsDisks.h"

namespace qv::test {
namespace {

using view::KeyWarnings;

view::OsDisk DiskWithId(std::int64_t number, const std::string& deviceId) {
    view::OsDisk disk = NumberedDisk(number, {2, "OK"});
    disk.deviceId = deviceId;
    return disk;
}

TEST(KeyWarnings, NameDisksWithOneId) {
    EXPECT_EQ(KeyWarnings({DiskWithId(1, "IDE\\A"), DiskWithId(2, "ide\\a")}),
              "warning: disks #1 and #2 have one plug-and-play ID: their instances have the same "
              "keys\n");
}

TEST(KeyWarnings, NameDisksOfWhichOneIdIsPartOfTheOther) {
    const std::string warning =
        "warning: the plug-and-play ID of disk #1 is part of that of disk #2: associations of one "
        "may name the other, too\n";
    EXPECT_EQ(KeyWarnings({DiskWithId(1, "IDE\\A"), DiskWithId(2, "IDE\\AB")}), warning);
    EXPECT_EQ(KeyWarnings({DiskWithId(2, "IDE\\AB"), DiskWithId(1, "IDE\\A")}), warning);
}

TEST(KeyWarnings, AreALineForAllDisksWithOneId) {
    EXPECT_EQ(
        KeyWarnings({DiskWithId(1, "IDE\\A"), DiskWithId(2, "ide\\a"), DiskWithId(3, "IDE\\A"),
                     DiskWithId(4, "IDE\\AB"), DiskWithId(5, "X\\IDE\\A")}),
        "warning: disks #1, #2 and #3 have one plug-and-play ID: their instances have the same "
        "keys\n"
        "warning: the plug-and-play ID of disks #1, #2 and #3 is part of those of disks #4 and "
        "#5: associations of one may name the others, too\n");
}

TEST(KeyWarnings, NameTheFirstOfManyDisks) {
    const std::vector<view::OsDisk> disks(1000, DiskWithId(7, "IDE\\A"));
    EXPECT_EQ(
        KeyWarnings(disks),
        "warning: disks #7, #7, #7, #7, #7, #7, #7, #7 and 992 more have one plug-and-play ID: "
        "their instances have the same keys\n");
}

TEST(KeyWarnings, AreALineForAllDisksWithOneSerialNumber) {
    view::OsDisk disk = DiskWithId(1, "");
    disk.serialNumber = "SN1";
    EXPECT_EQ(view::SerialNumberWarnings({disk, DiskWithId(2, ""), disk, disk}),
              (std::vector<std::string>{
                  "disk #2 is published without a serial number",
                  "disks #1, #1 and #1 are published with one serial number: SN1"}));
}

TEST(KeyWarnings, NameADiskWithoutAnIdAndCompareItWithNoOther) {
    EXPECT_EQ(KeyWarnings({DiskWithId(0, "IDE\\A"), DiskWithId(1, "")}),
              "warning: disk #1 has no plug-and-play ID\n");
}

TEST(KeyWarnings, AreNoneForIdsThatDifferOrADiskThatIsNotPublished) {
    view::OsDisk unpublished = DiskWithId(3, "IDE\\A");
    unpublished.whyUnpublished = "bus is SCSI";
    EXPECT_EQ(KeyWarnings({DiskWithId(1, "IDE\\A"), DiskWithId(2, "IDE\\B"), unpublished}), "");
}

}  // namespace
}  // namespace qv::test
