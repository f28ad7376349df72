#include <gtest/gtest.h>

#include "tests/support/Builders.h"
#include "tests/support/ExpectedCatalogue.h"
#include "tests/support/Records.h"

namespace qv::test {
namespace {

using Values = std::vector<std::string>;

constexpr const char* initiator = "QV_ISATAProtocolEndpoint";
constexpr const char* target = "QV_TSATAProtocolEndpoint";

class SATAProtocolEndpointTest : public testing::Test, public Builders {
protected:
    SATAProtocolEndpointTest() {
        host.Answer(controllersQuery, {Controller(ahciId), Controller(channelId)});
        host.Answer(controllerLinksQuery, {ControllerLink(channelId, diskId)});
        host.Answer(disksQuery, {Disk(diskId)});
    }
};

TEST_F(SATAProtocolEndpointTest, InitiatorHasItsPropertiesInOrder) {
    EXPECT_EQ(All(initiator), RecordList{ExpectedRecord(initiator)});
}

TEST_F(SATAProtocolEndpointTest, InitiatorAsksForTheControllersOnce) {
    All(initiator);
    EXPECT_EQ(host.asked, InCimv2({controllersQuery}));
}

TEST_F(SATAProtocolEndpointTest, InitiatorsAreNoneWhenTheControllersCannotBeHad) {
    host.Fail(controllersQuery);
    EXPECT_EQ(All(initiator), RecordList{});
}

TEST_F(SATAProtocolEndpointTest, InitiatorCarriesOnlyKeysWhenOnlyKeysAreAskedFor) {
    EXPECT_EQ(NamesOf(Keys(initiator).at(0)),
              (Values{"SystemName", "SystemCreationClassName", "CreationClassName", "Name"}));
}

TEST_F(SATAProtocolEndpointTest, InitiatorLeavesSystemNameOutWithoutAHostName) {
    ForgetHostName();
    EXPECT_EQ(NamesOf(Keys(initiator).at(0)),
              (Values{"SystemCreationClassName", "CreationClassName", "Name"}));
}

TEST_F(SATAProtocolEndpointTest, InitiatorIsFoundByItsPathInAnyLetterCase) {
    const std::string path =
        R"(qv_isataprotocolendpoint.SYSTEMNAME="host.example.org",)"
        R"(SystemCreationClassName="QV_WinComputerSystem",)"
        R"(CreationClassName="QV_ISATAProtocolEndpoint",Name="pciide&idechannel&4&2e6e9e8&0&0")";
    EXPECT_EQ(At(initiator, path), All(initiator));
    EXPECT_EQ(At(initiator, "QV_ISATAProtocolEndpoint.Name=\"x\""), RecordList{});
}

TEST_F(SATAProtocolEndpointTest, InitiatorPassesOverARowThatIsNoChannel) {
    host.Answer(controllersQuery, {Controller(R"(ROOT\IDE\0000)"), Controller(channelId),
                                   Without(Controller(channelId), "DeviceID")});
    EXPECT_EQ(ValuesOf(All(initiator), "Name"), Values{channelKey});
}

TEST_F(SATAProtocolEndpointTest, InitiatorGoesByTheDeviceIdAndNotByThePlugAndPlayId) {
    host.Answer(controllersQuery, {With(Controller(channelId), {{"PNPDeviceID", ""}})});
    EXPECT_EQ(ValuesOf(All(initiator), "Name"), Values{channelKey});
}

TEST_F(SATAProtocolEndpointTest, TargetHasItsPropertiesInOrder) {
    EXPECT_EQ(All(target), RecordList{ExpectedRecord(target)});
}

TEST_F(SATAProtocolEndpointTest, TargetAsksForDisksLinksAndControllers) {
    const auto expected = InCimv2({disksQuery, controllerLinksQuery, controllersQuery});
    All(target);
    EXPECT_EQ(host.asked, expected);
    host.asked.clear();
    Keys(target);
    EXPECT_EQ(host.asked, expected);
}

TEST_F(SATAProtocolEndpointTest, TargetsAreNoneWhenTheDisksCannotBeHad) {
    host.Fail(disksQuery);
    EXPECT_EQ(All(target), RecordList{});
}

TEST_F(SATAProtocolEndpointTest, TargetHasNoNameWhenTheLinksCannotBeHad) {
    host.Fail(controllerLinksQuery);
    EXPECT_EQ(NamesOf(Keys(target).at(0)),
              (Values{"SystemName", "SystemCreationClassName", "CreationClassName"}));
}

TEST_F(SATAProtocolEndpointTest, TargetHasNoNameWhenTheControllersCannotBeHad) {
    host.Fail(controllersQuery);
    EXPECT_EQ(NamesOf(Keys(target).at(0)),
              (Values{"SystemName", "SystemCreationClassName", "CreationClassName"}));
}

TEST_F(SATAProtocolEndpointTest, TargetOfALinkedDiskCarriesItsFourKeysWhenOnlyKeysAreAskedFor) {
    EXPECT_EQ(Keys(target),
              RecordList{Record(target, {Key("Name", diskKey + " connected to " + channelKey),
                                         Key("SystemName", "host.example.org"),
                                         Key("SystemCreationClassName", "QV_WinComputerSystem"),
                                         Key("CreationClassName", target)})});
}

TEST_F(SATAProtocolEndpointTest, TargetOfADiskWithoutLinkHasThreeKeysAndNoName) {
    host.Answer(controllerLinksQuery, {ControllerLink(channelId, "other")});
    EXPECT_EQ(All(target).size(), 1U);
    EXPECT_EQ(NamesOf(Keys(target).at(0)),
              (Values{"SystemName", "SystemCreationClassName", "CreationClassName"}));
}

TEST_F(SATAProtocolEndpointTest, TargetHasAnEmptySystemNameWithoutAHostName) {
    ForgetHostName();
    EXPECT_EQ(ValuesOf(Keys(target), "SystemName"), Values{""});
}

TEST_F(SATAProtocolEndpointTest, TargetIsOneForEachIdeDiskInSourceOrder) {
    host.Answer(disksQuery, {Disk("D2"), With(Disk("S"), {{"InterfaceType", "SCSI"}}),
                             With(Disk("U"), {{"InterfaceType", "USB"}}),
                             With(Disk("i"), {{"InterfaceType", "ide"}}),
                             Without(Disk("N"), "InterfaceType"), Disk("D1")});
    EXPECT_EQ(ValuesOf(All(target), "Caption"),
              (Values{"Protocol Endpoint for D2", "Protocol Endpoint for D1"}));
}

TEST_F(SATAProtocolEndpointTest, TargetOfADiskOnAPciControllerNamesThatController) {
    host.Answer(controllerLinksQuery, {ControllerLink(ahciId, diskId)});
    EXPECT_EQ(ValuesOf(All(target), "Name"), Values{diskKey + " connected to " + ahciKey});
}

TEST_F(SATAProtocolEndpointTest, TargetMatchesIdsWhateverTheirBackslashesAndCase) {
    host.Answer(disksQuery, {Disk(R"(ide\diskxyz_1.0\5&1a2b3c&0&0.0.0)")});
    EXPECT_EQ(ValuesOf(All(target), "Name"),
              Values{"ide&diskxyz_1.0&5&1a2b3c&0&0.0.0 connected to " + channelKey});
}

TEST_F(SATAProtocolEndpointTest, TargetHasTheNameOfTheLastMatchingLinkOnly) {
    host.Answer(controllerLinksQuery,
                {ControllerLink(channelId, diskId), ControllerLink(ahciId, diskId),
                 ControllerLink(R"(PCI\MISSING)", diskId)});
    EXPECT_EQ(ValuesOf(All(target), "Name"), Values{diskKey + " connected to " + ahciKey});
}

TEST_F(SATAProtocolEndpointTest, TargetIsFoundByItsPathInAnyLetterCase) {
    const std::string path = "qv_tsataprotocolendpoint.name=\"" + diskKey + " CONNECTED to " +
                             channelKey +
                             R"(",SystemName="host.example.org",)"
                             R"(SystemCreationClassName="QV_WinComputerSystem",)"
                             R"(CreationClassName="QV_TSATAProtocolEndpoint")";
    EXPECT_EQ(At(target, path), All(target));
    EXPECT_EQ(At(target, "QV_TSATAProtocolEndpoint.Name=\"x\""), RecordList{});
}

TEST_F(SATAProtocolEndpointTest, TargetOfADiskWithoutPlugAndPlayIdHasAnEmptyIdInItsCaption) {
    host.Answer(disksQuery, {With(Disk(""), {{"PNPDeviceID", std::monostate{}}})});
    EXPECT_EQ(ValuesOf(All(target), "Caption"), Values{"Protocol Endpoint for "});
}

}  // namespace
}  // namespace qv::test
