#include "source/SourceRules.h"

#include <gmock/gmock.h>

#include "tests/support/SourceRows.h"

namespace qv::test {
namespace {

using testing::Each;
using testing::ResultOf;

// Returns the serial number of the media row found for a disk; "none" if there is none.
std::string SerialOf(const Properties& disk, const platform::Rows& media) {
    const platform::Row* found = FindMediaOfDisk(ScriptedRow(disk), media);
    return found == nullptr ? "none" : std::get<std::string>(found->Get("SerialNumber").value);
}

TEST(SourceRules, IsIdeDiskIsTrueForExactlyTheInterfaceTypeIDE) {
    EXPECT_TRUE(IsIdeDisk(ScriptedRow(Properties{{"InterfaceType", "IDE"}})));
    const std::vector<const char*> others{"ide", "Ide", "SCSI", "USB", "IDE ", " IDE", "IDEX", ""};
    EXPECT_THAT(others, Each(ResultOf(
                            [](const char* other) {
                                return IsIdeDisk(ScriptedRow(Properties{{"InterfaceType", other}}));
                            },
                            false)));
}

TEST(SourceRules, IsIdeDiskIsFalseWithoutATextInterfaceType) {
    EXPECT_FALSE(IsIdeDisk(ScriptedRow({})));
    EXPECT_FALSE(IsIdeDisk(ScriptedRow(Properties{{"InterfaceType", std::monostate{}}})));
    EXPECT_FALSE(IsIdeDisk(ScriptedRow(Properties{{"InterfaceType", 3}})));
}

TEST(SourceRules, IsPortControllerIsTrueForADeviceIdWithAPciRevision) {
    EXPECT_TRUE(IsPortController(R"(PCI\VEN_8086&DEV_2922&SUBSYS_12345678&REV_02\3&1AB2&0&FA)"));
    EXPECT_TRUE(IsPortController(R"(PCI\VEN_8086&REV_)"));
}

TEST(SourceRules, IsPortControllerIsFalseWithoutAmpersandRevUnderscore) {
    EXPECT_FALSE(IsPortController(R"(ROOT\IDE\0000)"));
    EXPECT_FALSE(IsPortController(R"(PCIIDE\IDECHANNEL\4&1&0&0)"));
    EXPECT_FALSE(IsPortController(R"(PCI\REV_02)"));
    EXPECT_FALSE(IsPortController(R"(PCI\VEN_8086&rev_02)"));
    EXPECT_FALSE(IsPortController(""));
}

TEST(SourceRules, RevisionOfIsTheTextUpToTheNextBackslash) {
    EXPECT_EQ(RevisionOf(R"(PCI\VEN_8086&DEV_2922&SUBSYS_12345678&REV_02\3&1AB2&0&FA)"), "02");
    EXPECT_EQ(RevisionOf(R"(PCI\VEN_8086&REV_1A\3)"), "1A");
    EXPECT_EQ(RevisionOf(R"(PCI\VEN_8086&REV_\3)"), "");
}

TEST(SourceRules, RevisionOfRunsToTheEndWhenNoBackslashFollows) {
    EXPECT_EQ(RevisionOf(R"(PCI\VEN_8086&DEV_2922&REV_0F)"), "0F");
    EXPECT_EQ(RevisionOf(R"(PCI\VEN_8086&REV_05&X_1)"), "05&X_1");
}

TEST(SourceRules, RevisionOfTakesTheFirstOfSeveralRevisions) {
    EXPECT_EQ(RevisionOf(R"(PCI\A&REV_01\B&REV_02\C)"), "01");
}

TEST(SourceRules, RevisionOfIsEmptyWithoutOne) {
    EXPECT_EQ(RevisionOf(R"(ROOT\IDE\0000)"), "");
}

TEST(SourceRules, FindMediaOfDiskTakesTheFirstRowWhoseTagIsTheDeviceId) {
    const Properties disk{{"DeviceID", R"(\\.\PHYSICALDRIVE1)"}};
    EXPECT_EQ(
        SerialOf(disk,
                 RowsOf({Properties{{"Tag", R"(\\.\PHYSICALDRIVE0)"}, {"SerialNumber", "A"}},
                         Properties{{"Tag", R"(\\.\PHYSICALDRIVE1)"}, {"SerialNumber", "B"}},
                         Properties{{"Tag", R"(\\.\PHYSICALDRIVE1)"}, {"SerialNumber", "C"}}})),
        "B");
}

TEST(SourceRules, FindMediaOfDiskComparesExactly) {
    const Properties disk{{"DeviceID", R"(\\.\PHYSICALDRIVE1)"}};
    EXPECT_EQ(
        SerialOf(disk, RowsOf({Properties{{"Tag", R"(\\.\physicaldrive1)"}, {"SerialNumber", "A"}},
                               Properties{{"Tag", R"(\\.\PHYSICALDRIVE10)"}, {"SerialNumber", "B"}},
                               Properties{{"Tag", R"(\\.\PHYSICALDRIVE)"}, {"SerialNumber", "C"}},
                               Properties{{"SerialNumber", "D"}}})),
        "none");
}

// Returns the status that ends the request when a disk is compared with a media row.
Status ErrorOf(const Properties& disk) {
    try {
        FindMediaOfDisk(ScriptedRow(disk), RowsOf({Properties{{"Tag", "X"}}}));
    } catch (const RequestError& error) {
        return error.status();
    }
    return Status::noError;
}

TEST(SourceRules, FindMediaOfDiskEndsTheRequestWhenADiskWithoutDeviceIdIsComparedWithARow) {
    EXPECT_EQ(ErrorOf({}), Status::unspecifiedFailure);
    EXPECT_EQ(ErrorOf({{"DeviceID", std::monostate{}}}), Status::unspecifiedFailure);
    EXPECT_EQ(ErrorOf({{"DeviceID", 1}}), Status::unspecifiedFailure);
}

TEST(SourceRules, FindMediaOfDiskFindsNothingForADiskWithoutDeviceIdAmongNoRows) {
    EXPECT_EQ(FindMediaOfDisk(ScriptedRow({}), {}), nullptr);
}

TEST(SourceRules, MediaOfDisksFindsTheFirstRowWhoseTagIsTheDeviceId) {
    const platform::Rows media =
        RowsOf({Properties{{"Tag", "A"}}, Properties{{"Tag", "B"}}, Properties{{"Tag", "B"}}});
    const MediaOfDisks mediaOfDisks(media);
    EXPECT_EQ(mediaOfDisks.Of(ScriptedRow(Properties{{"DeviceID", "B"}})), media[1].get());
    EXPECT_EQ(mediaOfDisks.Of(ScriptedRow(Properties{{"DeviceID", "b"}})), nullptr);
}

TEST(SourceRules, MediaOfDisksFindsNoRowWithoutTagForADiskWithoutDeviceId) {
    const platform::Rows media = RowsOf({Properties{}});
    EXPECT_EQ(MediaOfDisks(media).Of(ScriptedRow({})), nullptr);
}

TEST(SourceRules, PredictedDisksAreThoseWhoseIdTheInstanceNameContains) {
    const PredictedDisks disks({R"(IDE\disk1)", "", R"(IDE\DISK12)", R"(SCSI\DISK1)"});
    EXPECT_THAT(disks.Of(ScriptedRow(Properties{{"InstanceName", R"(ide\Disk12_0)"}})),
                testing::ElementsAre(0U, 1U, 2U));
    EXPECT_THAT(disks.Of(ScriptedRow({})), testing::ElementsAre(1U));
}

TEST(SourceRules, IsChannelIsTrueForAnIdWithIDECHANNEL) {
    EXPECT_TRUE(IsChannel(R"(PCIIDE\IDECHANNEL\4&1&0&0)"));
    EXPECT_TRUE(IsChannel("IDECHANNEL"));
}

TEST(SourceRules, IsChannelIsFalseForAnyOtherId) {
    EXPECT_FALSE(IsChannel(R"(PCIIDE\IdeChannel\4&1&0&0)"));
    EXPECT_FALSE(IsChannel(R"(PCI\VEN_8086&REV_02\3)"));
    EXPECT_FALSE(IsChannel(""));
}

TEST(SourceRules, IsInitiatorIsTrueForAChannelWithoutARevision) {
    EXPECT_TRUE(IsInitiator(R"(PCIIDE\IDECHANNEL\4&1&0&0)"));
}

TEST(SourceRules, IsInitiatorIsFalseForPortControllersAndOtherRows) {
    EXPECT_FALSE(IsInitiator(R"(PCI\VEN_8086&REV_02\3)"));
    EXPECT_FALSE(IsInitiator(R"(PCI\IDECHANNEL&REV_02\3)"));
    EXPECT_FALSE(IsInitiator(R"(ROOT\IDE\0000)"));
}

TEST(SourceRules, FamilyOfDriverKnowsFourDrivers) {
    EXPECT_EQ(FamilyOfDriver("msahci"), ControllerFamily::nativeSata);
    EXPECT_EQ(FamilyOfDriver("pciide"), ControllerFamily::pciIde);
    EXPECT_EQ(FamilyOfDriver("pciidex"), ControllerFamily::pciIde);
    EXPECT_EQ(FamilyOfDriver("atapi"), ControllerFamily::atapi);
}

TEST(SourceRules, FamilyOfDriverKnowsNoOtherDriver) {
    const std::vector<const char*> others{"MSAHCI", "storahci", "pciidexx", "Atapi", ""};
    EXPECT_THAT(others, Each(ResultOf(FamilyOfDriver, std::nullopt)));
}

TEST(SourceRules, FirstSegmentOfStandsBetweenTheFirstTwoAmpersands) {
    EXPECT_EQ(FirstSegmentOf(R"(PCI\VEN_8086&DEV_2922&REV_02\3)"), "DEV_2922");
}

TEST(SourceRules, FirstSegmentOfRunsToTheEndWithOneAmpersand) {
    EXPECT_EQ(FirstSegmentOf(R"(PCI\VEN_8086&REV_02\3)"), R"(REV_02\3)");
}

TEST(SourceRules, FirstSegmentOfIsTheWholeIdWithoutAmpersand) {
    EXPECT_EQ(FirstSegmentOf(R"(ROOT\IDE\0000)"), R"(ROOT\IDE\0000)");
    EXPECT_EQ(FirstSegmentOf(""), "");
}

TEST(SourceRules, DeviceNumberOfFollowsTheFirstUnderscoreOfTheSegment) {
    EXPECT_EQ(DeviceNumberOf(R"(PCI\VEN_8086&DEV_2922&REV_02\3)"), "2922");
    EXPECT_EQ(DeviceNumberOf(R"(PCI\VEN_8086&DEV_29_22&REV_02\3)"), "29_22");
}

TEST(SourceRules, DeviceNumberOfTakesTheSegmentWhateverItIs) {
    EXPECT_EQ(DeviceNumberOf(R"(PCI\VEN_8086&SUBSYS_12345678&REV_02\3)"), "12345678");
}

TEST(SourceRules, DeviceNumberOfIsTheWholeSegmentWithoutUnderscore) {
    EXPECT_EQ(DeviceNumberOf(R"(PCI\VEN_8086&DEV&REV_02\3)"), "DEV");
}

TEST(SourceRules, ChannelLabelStartsAtIDECHANNELWithItsFirstBackslashReplaced) {
    EXPECT_EQ(ChannelLabel(R"(PCIIDE\IDECHANNEL\4&2E6E9E8&0&0)"),
              "IDECHANNEL with ID: 4&2E6E9E8&0&0");
    EXPECT_EQ(ChannelLabel(R"(PCIIDE\IDECHANNEL\4\5)"), R"(IDECHANNEL with ID: 4\5)");
}

TEST(SourceRules, ChannelLabelIsTheRestOfTheIdWithoutBackslash) {
    EXPECT_EQ(ChannelLabel(R"(PCIIDE\IDECHANNEL0)"), "IDECHANNEL0");
}

}  // namespace
}  // namespace qv::test
