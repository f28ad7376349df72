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

TEST(KeyWarnings, AreOneLineForAllDisksWithOneId) {
    EXPECT_EQ(KeyWarnings({DiskWithId(0, "A"), DiskWithId(1, "A"), DiskWithId(2, "A")}),
              "warning: disks #0, #1 and #2 have one plug-and-play ID: their instances have the "
              "same keys\n");
}

TEST(KeyWarnings, CountTheDisksAfterTheEighth) {
    std::vector<view::OsDisk> disks;
    for (const std::int64_t number : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}) {
        disks.push_back(DiskWithId(number, "A"));
    }
    EXPECT_EQ(KeyWarnings(disks),
              "warning: disks #0, #1, #2, #3, #4, #5, #6, #7 and 2 more have one plug-and-play ID: "
              "their instances have the same keys\n");
}

TEST(KeyWarnings, AreOneLineForAnIdThatIsPartOfSeveral) {
    EXPECT_EQ(KeyWarnings({DiskWithId(1, "A"), DiskWithId(2, "AB"), DiskWithId(3, "AC")}),
              "warning: the plug-and-play ID of disk #1 is part of that of disks #2 and #3: "
              "associations of one may name the other, too\n");
}

TEST(KeyWarnings, AreOneLineForTheDisksWithoutAnId) {
    EXPECT_EQ(KeyWarnings({DiskWithId(1, ""), DiskWithId(2, "")}),
              "warning: disks #1 and #2 have no plug-and-play ID\n");
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
