#include "source/SourceRules.h"

#include <gtest/gtest.h>

#include "tests/support/ScriptedHost.h"

namespace qv {
namespace {

using test::Properties;
using test::ScriptedRow;

platform::Rows RowsOf(std::vector<Properties> properties) {
    platform::Rows rows;
    for (Properties& one : properties) {
        rows.push_back(std::make_shared<ScriptedRow>(std::move(one)));
    }
    return rows;
}

// The serial number of the media row found for a disk; "none" without one.
std::string SerialOf(const Properties& disk, const platform::Rows& media) {
    const platform::Row* found = FindMediaOfDisk(ScriptedRow(disk), media);
    return found == nullptr ? "none" : std::get<std::string>(found->Get("SerialNumber").value);
}

TEST(IsIdeDisk, IsTrueForExactlyTheInterfaceTypeIDE) {
    EXPECT_TRUE(IsIdeDisk(ScriptedRow(Properties{{"InterfaceType", "IDE"}})));
    for (const char* other : {"ide", "Ide", "SCSI", "USB", "IDE ", " IDE", "IDEX", ""}) {
        EXPECT_FALSE(IsIdeDisk(ScriptedRow(Properties{{"InterfaceType", other}}))) << other;
    }
}

TEST(IsIdeDisk, IsFalseWithoutATextInterfaceType) {
    EXPECT_FALSE(IsIdeDisk(ScriptedRow({})));
    EXPECT_FALSE(IsIdeDisk(ScriptedRow(Properties{{"InterfaceType", std::monostate{}}})));
    EXPECT_FALSE(IsIdeDisk(ScriptedRow(Properties{{"InterfaceType", 3}})));
}

TEST(IsPortController, IsTrueForADeviceIdWithAPciRevision) {
    EXPECT_TRUE(IsPortController(R"(PCI\VEN_8086&DEV_2922&SUBSYS_12345678&REV_02\3&1AB2&0&FA)"));
    EXPECT_TRUE(IsPortController(R"(PCI\VEN_8086&REV_)"));
}

TEST(IsPortController, IsFalseWithoutAmpersandRevUnderscore) {
    EXPECT_FALSE(IsPortController(R"(ROOT\IDE\0000)"));
    EXPECT_FALSE(IsPortController(R"(PCIIDE\IDECHANNEL\4&1&0&0)"));
    EXPECT_FALSE(IsPortController(R"(PCI\REV_02)"));
    EXPECT_FALSE(IsPortController(R"(PCI\VEN_8086&rev_02)"));
    EXPECT_FALSE(IsPortController(""));
}

TEST(RevisionOf, IsTheTextUpToTheNextBackslash) {
    EXPECT_EQ(RevisionOf(R"(PCI\VEN_8086&DEV_2922&SUBSYS_12345678&REV_02\3&1AB2&0&FA)"), "02");
    EXPECT_EQ(RevisionOf(R"(PCI\VEN_8086&REV_1A\3)"), "1A");
    EXPECT_EQ(RevisionOf(R"(PCI\VEN_8086&REV_\3)"), "");
}

TEST(RevisionOf, RunsToTheEndWhenNoBackslashFollows) {
    EXPECT_EQ(RevisionOf(R"(PCI\VEN_8086&DEV_2922&REV_0F)"), "0F");
    EXPECT_EQ(RevisionOf(R"(PCI\VEN_8086&REV_05&X_1)"), "05&X_1");
}

TEST(RevisionOf, TakesTheFirstOfSeveralRevisions) {
    EXPECT_EQ(RevisionOf(R"(PCI\A&REV_01\B&REV_02\C)"), "01");
}

TEST(RevisionOf, IsEmptyWithoutOne) {
    EXPECT_EQ(RevisionOf(R"(ROOT\IDE\0000)"), "");
}

TEST(FindMediaOfDisk, TakesTheFirstRowWhoseTagIsTheDeviceId) {
    const Properties disk{{"DeviceID", R"(\\.\PHYSICALDRIVE1)"}};
    EXPECT_EQ(
        SerialOf(disk,
                 RowsOf({Properties{{"Tag", R"(\\.\PHYSICALDRIVE0)"}, {"SerialNumber", "A"}},
                         Properties{{"Tag", R"(\\.\PHYSICALDRIVE1)"}, {"SerialNumber", "B"}},
                         Properties{{"Tag", R"(\\.\PHYSICALDRIVE1)"}, {"SerialNumber", "C"}}})),
        "B");
}

TEST(FindMediaOfDisk, ComparesExactly) {
    const Properties disk{{"DeviceID", R"(\\.\PHYSICALDRIVE1)"}};
    EXPECT_EQ(
        SerialOf(disk, RowsOf({Properties{{"Tag", R"(\\.\physicaldrive1)"}, {"SerialNumber", "A"}},
                               Properties{{"Tag", R"(\\.\PHYSICALDRIVE10)"}, {"SerialNumber", "B"}},
                               Properties{{"Tag", R"(\\.\PHYSICALDRIVE)"}, {"SerialNumber", "C"}},
                               Properties{{"SerialNumber", "D"}}})),
        "none");
}

TEST(FindMediaOfDisk, EndsTheRequestWhenADiskWithoutDeviceIdIsComparedWithARow) {
    const auto media = RowsOf({Properties{{"Tag", "X"}, {"SerialNumber", "A"}}});
    for (const Properties& disk :
         {Properties{}, Properties{{"DeviceID", std::monostate{}}}, Properties{{"DeviceID", 1}}}) {
        try {
            FindMediaOfDisk(ScriptedRow(disk), media);
            ADD_FAILURE() << "no error was raised";
        } catch (const RequestError& error) {
            EXPECT_EQ(error.status(), Status::unspecifiedFailure);
        }
    }
}

TEST(FindMediaOfDisk, FindsNothingForADiskWithoutDeviceIdAmongNoRows) {
    EXPECT_EQ(FindMediaOfDisk(ScriptedRow({}), {}), nullptr);
}

}  // namespace
}  // namespace qv
