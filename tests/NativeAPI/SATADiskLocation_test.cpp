#include <gtest/gtest.h>

#include "tests/support/Builders.h"
#include "tests/support/ExpectedCatalogue.h"
#include "tests/support/Records.h"

namespace qv::test {
namespace {

using Values = std::vector<std::string>;

constexpr const char* diskLocationClass = "QV_SATADiskLocation";

class SATADiskLocationTest : public testing::Test, public Builders {
protected:
    SATADiskLocationTest() {
        host.Answer(disksQuery, {Disk(diskId)});
        host.Answer(controllerLinksQuery, {ControllerLink(channelId, diskId)});
        host.Answer(controllersQuery,
                    {With(Controller(ahciId), {{"Caption", "AHCI"}}),
                     With(Controller(channelId), {{"Caption", "ATA Channel 0"}})});
    }

    // Returns the description of a disk on a controller with this device ID.
    std::string DescriptionOn(const std::string& deviceId) {
        host.Answer(controllersQuery, {With(Controller(deviceId), {{"Caption", "C"}})});
        host.Answer(controllerLinksQuery, {ControllerLink(deviceId, diskId)});
        return ValuesOf(All(diskLocationClass), "Description").at(0);
    }

    // Returns the location tag of a disk with this plug-and-play device ID.
    std::string TagOf(const std::string& pnpDeviceId) {
        host.Answer(disksQuery, {Disk(pnpDeviceId)});
        return ValuesOf(All(diskLocationClass), "ElementLocationTag").at(0);
    }
};

TEST_F(SATADiskLocationTest, HasItsPropertiesInOrder) {
    EXPECT_EQ(All(diskLocationClass), RecordList{ExpectedRecord(diskLocationClass)});
}

TEST_F(SATADiskLocationTest, AsksForDisksLinksAndControllers) {
    const auto expected = InCimv2({disksQuery, controllerLinksQuery, controllersQuery});
    All(diskLocationClass);
    EXPECT_EQ(host.asked, expected);
    host.asked.clear();
    Keys(diskLocationClass);
    EXPECT_EQ(host.asked, expected);
}

TEST_F(SATADiskLocationTest, IsNoneWhenTheDisksCannotBeHad) {
    host.Fail(disksQuery);
    EXPECT_EQ(All(diskLocationClass), RecordList{});
}

TEST_F(SATADiskLocationTest, OfADiskWhoseControllerCannotBeFoundHasAnEmptyPosition) {
    host.Fail(controllerLinksQuery);
    EXPECT_EQ(ValuesOf(All(diskLocationClass), "PhysicalPosition"), Values{""});
    EXPECT_EQ(ValuesOf(All(diskLocationClass), "Description"),
              Values{"Standard ATA Disk Drive at ,"});
}

TEST_F(SATADiskLocationTest, HasAnEmptyPositionWhenTheControllersCannotBeHad) {
    host.Fail(controllersQuery);
    EXPECT_EQ(ValuesOf(All(diskLocationClass), "PhysicalPosition"), Values{""});
}

TEST_F(SATADiskLocationTest, CarriesOnlyKeysWhenOnlyKeysAreAskedFor) {
    EXPECT_EQ(Keys(diskLocationClass),
              RecordList{Record(diskLocationClass,
                                {Key("Name", diskKey), Key("PhysicalPosition", "ATA Channel 0")})});
}

TEST_F(SATADiskLocationTest, IsFoundByItsPathInAnyLetterCase) {
    EXPECT_EQ(At(diskLocationClass,
                 "QV_SATADISKLOCATION.Name=\"" + diskKey + R"(",PhysicalPosition="ata channel 0")"),
              All(diskLocationClass));
    EXPECT_EQ(At(diskLocationClass, "QV_SATADiskLocation.Name=\"" + diskKey + "\""), RecordList{});
}

TEST_F(SATADiskLocationTest, TheSegmentStandsBetweenTheFirstTwoAmpersandsOfTheControllersId) {
    EXPECT_EQ(DescriptionOn(ahciId), "Standard ATA Disk Drive at C,DEV_2922");
    EXPECT_EQ(DescriptionOn(R"(PCI\A&B\C)"), R"(Standard ATA Disk Drive at C,B\C)");
    EXPECT_EQ(DescriptionOn(R"(ROOT\X)"), R"(Standard ATA Disk Drive at C,ROOT\X)");
}

TEST_F(SATADiskLocationTest, TheTagFollowsTheLastAmpersandOfTheDisksId) {
    EXPECT_EQ(TagOf(R"(IDE\X\5&1&0)"), "SCSI ID: 0");
    EXPECT_EQ(TagOf(R"(IDE\X)"), R"(SCSI ID: IDE\X)");
    EXPECT_EQ(TagOf("X&"), "SCSI ID: ");
}

TEST_F(SATADiskLocationTest, TheLastMatchingLinkNamesThePosition) {
    host.Answer(controllerLinksQuery,
                {ControllerLink(channelId, diskId), ControllerLink(ahciId, diskId),
                 ControllerLink(R"(PCI\MISSING)", diskId)});
    EXPECT_EQ(ValuesOf(All(diskLocationClass), "PhysicalPosition"), Values{"AHCI"});
}

TEST_F(SATADiskLocationTest, MatchesIdsWithoutRegardToCase) {
    host.Answer(disksQuery, {Disk(R"(ide\diskxyz_1.0\5&1a2b3c&0&0.0.0)")});
    EXPECT_EQ(ValuesOf(All(diskLocationClass), "PhysicalPosition"), Values{"ATA Channel 0"});
}

TEST_F(SATADiskLocationTest, AControllerWithoutCaptionGivesAnEmptyPosition) {
    host.Answer(controllersQuery, {Without(Controller(channelId), "Caption")});
    EXPECT_EQ(ValuesOf(All(diskLocationClass), "Description"),
              Values{"Standard ATA Disk Drive at ,2E6E9E8"});
}

TEST_F(SATADiskLocationTest, HasTheKeyOfTheDisksOwnInstanceAndOfItsPackage) {
    EXPECT_EQ(ValuesOf(Keys(diskLocationClass), "Name"),
              ValuesOf(Keys("QV_SATADiskDrive"), "DeviceID"));
    EXPECT_EQ(ValuesOf(Keys(diskLocationClass), "Name"),
              ValuesOf(Keys("QV_SATADiskPhysicalPackage"), "Tag"));
}

TEST_F(SATADiskLocationTest, IsOneForEachIdeDiskInSourceOrder) {
    host.Answer(disksQuery, {Disk("D2"), With(Disk("S"), {{"InterfaceType", "SCSI"}}), Disk("D1")});
    EXPECT_EQ(ValuesOf(Keys(diskLocationClass), "Name"), (Values{"D2", "D1"}));
}

}  // namespace
}  // namespace qv::test
