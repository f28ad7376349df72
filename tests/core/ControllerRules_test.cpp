#include <gtest/gtest.h>

#include "source/SourceRules.h"

namespace qv {
namespace {

TEST(IsChannel, IsTrueForAnIdWithIDECHANNEL) {
    EXPECT_TRUE(IsChannel(R"(PCIIDE\IDECHANNEL\4&1&0&0)"));
    EXPECT_TRUE(IsChannel("IDECHANNEL"));
}

TEST(IsChannel, IsFalseForAnyOtherId) {
    EXPECT_FALSE(IsChannel(R"(PCIIDE\IdeChannel\4&1&0&0)"));
    EXPECT_FALSE(IsChannel(R"(PCI\VEN_8086&REV_02\3)"));
    EXPECT_FALSE(IsChannel(""));
}

TEST(IsInitiator, IsTrueForAChannelWithoutARevision) {
    EXPECT_TRUE(IsInitiator(R"(PCIIDE\IDECHANNEL\4&1&0&0)"));
}

TEST(IsInitiator, IsFalseForPortControllersAndOtherRows) {
    EXPECT_FALSE(IsInitiator(R"(PCI\VEN_8086&REV_02\3)"));
    EXPECT_FALSE(IsInitiator(R"(PCI\IDECHANNEL&REV_02\3)"));
    EXPECT_FALSE(IsInitiator(R"(ROOT\IDE\0000)"));
}

TEST(FamilyOfDriver, KnowsFourDrivers) {
    EXPECT_EQ(FamilyOfDriver("msahci"), ControllerFamily::nativeSata);
    EXPECT_EQ(FamilyOfDriver("pciide"), ControllerFamily::pciIde);
    EXPECT_EQ(FamilyOfDriver("pciidex"), ControllerFamily::pciIde);
    EXPECT_EQ(FamilyOfDriver("atapi"), ControllerFamily::atapi);
}

TEST(FamilyOfDriver, KnowsNoOtherDriver) {
    for (const char* name : {"MSAHCI", "storahci", "pciidexx", "Atapi", ""}) {
        EXPECT_EQ(FamilyOfDriver(name), std::nullopt) << name;
    }
}

TEST(FirstSegmentOf, StandsBetweenTheFirstTwoAmpersands) {
    EXPECT_EQ(FirstSegmentOf(R"(PCI\VEN_8086&DEV_2922&REV_02\3)"), "DEV_2922");
}

TEST(FirstSegmentOf, RunsToTheEndWithOneAmpersand) {
    EXPECT_EQ(FirstSegmentOf(R"(PCI\VEN_8086&REV_02\3)"), R"(REV_02\3)");
}

TEST(FirstSegmentOf, IsTheWholeIdWithoutAmpersand) {
    EXPECT_EQ(FirstSegmentOf(R"(ROOT\IDE\0000)"), R"(ROOT\IDE\0000)");
    EXPECT_EQ(FirstSegmentOf(""), "");
}

TEST(DeviceNumberOf, FollowsTheFirstUnderscoreOfTheSegment) {
    EXPECT_EQ(DeviceNumberOf(R"(PCI\VEN_8086&DEV_2922&REV_02\3)"), "2922");
    EXPECT_EQ(DeviceNumberOf(R"(PCI\VEN_8086&DEV_29_22&REV_02\3)"), "29_22");
}

TEST(DeviceNumberOf, TakesTheSegmentWhateverItIs) {
    EXPECT_EQ(DeviceNumberOf(R"(PCI\VEN_8086&SUBSYS_12345678&REV_02\3)"), "12345678");
}

TEST(DeviceNumberOf, IsTheWholeSegmentWithoutUnderscore) {
    EXPECT_EQ(DeviceNumberOf(R"(PCI\VEN_8086&DEV&REV_02\3)"), "DEV");
}

TEST(ChannelLabel, StartsAtIDECHANNELWithItsFirstBackslashReplaced) {
    EXPECT_EQ(ChannelLabel(R"(PCIIDE\IDECHANNEL\4&2E6E9E8&0&0)"),
              "IDECHANNEL with ID: 4&2E6E9E8&0&0");
    EXPECT_EQ(ChannelLabel(R"(PCIIDE\IDECHANNEL\4\5)"), R"(IDECHANNEL with ID: 4\5)");
}

TEST(ChannelLabel, IsTheRestOfTheIdWithoutBackslash) {
    EXPECT_EQ(ChannelLabel(R"(PCIIDE\IDECHANNEL0)"), "IDECHANNEL0");
}

}  // namespace
}  // namespace qv
