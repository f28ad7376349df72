#include <gtest/gtest.h>

#include "tests/support/Builders.h"
#include "tests/support/ExpectedCatalogue.h"
#include "tests/support/Records.h"

namespace qv::test {
namespace {

constexpr const char* logicalPortClass = "QV_SATALogicalPort";

class SATALogicalPortTest : public testing::Test, public Builders {
protected:
    SATALogicalPortTest() {
        host.Answer(controllersQuery, {Controller(ahciId), Controller(channelId)});
        host.Answer(controllerLinksQuery, {ControllerLink(ahciId, channelId)});
    }
};

TEST_F(SATALogicalPortTest, PublishesAChannelWithItsPropertiesInOrder) {
    EXPECT_EQ(All(logicalPortClass), RecordList{ExpectedRecord(logicalPortClass)});
}

TEST_F(SATALogicalPortTest, AsksForTheControllersTwiceAndThenForTheLinks) {
    const auto expected = InCimv2({controllersQuery, controllersQuery, controllerLinksQuery});
    All(logicalPortClass);
    EXPECT_EQ(host.asked, expected);
    host.asked.clear();
    Keys(logicalPortClass);
    EXPECT_EQ(host.asked, expected);
}

TEST_F(SATALogicalPortTest, AsksForTheLinksAlsoWhenTheControllersCannotBeHad) {
    host.Fail(controllersQuery);
    EXPECT_EQ(All(logicalPortClass), RecordList{});
    EXPECT_EQ(host.asked.size(), 3U);
}

TEST_F(SATALogicalPortTest, CarriesOnlyKeysWhenOnlyKeysAreAskedFor) {
    const RecordList records = Keys("qv_sataLOGICALport");
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0], Record("qv_sataLOGICALport",
                                 {Key("DeviceID", channelKey + " connected to " + ahciKey),
                                  Key("SystemName", "host.example.org"),
                                  Key("CreationClassName", "qv_sataLOGICALport"),
                                  Key("SystemCreationClassName", "QV_WinComputerSystem")}));
}

TEST_F(SATALogicalPortTest, LeavesSystemNameOutWithoutAHostName) {
    ForgetHostName();
    EXPECT_EQ(
        NamesOf(Keys(logicalPortClass).at(0)),
        (std::vector<std::string>{"DeviceID", "CreationClassName", "SystemCreationClassName"}));
}

TEST_F(SATALogicalPortTest, IsFoundByItsPathInAnyLetterCase) {
    const std::string path =
        R"(qv_satalogicalport.DEVICEID="pciide&idechannel&4&2e6e9e8&0&0 CONNECTED TO )" + ahciKey +
        R"(",SystemName="HOST.example.org",CreationClassName="QV_SATALogicalPort",)"
        R"(SystemCreationClassName="QV_WinComputerSystem")";
    EXPECT_EQ(At(logicalPortClass, path), All(logicalPortClass));
    EXPECT_EQ(At(logicalPortClass, "QV_SATALogicalPort.DeviceID=\"x\""), RecordList{});
}

TEST_F(SATALogicalPortTest, AChannelWithoutLinkHasAKeyThatEndsInABlank) {
    host.Answer(controllerLinksQuery, {});
    EXPECT_EQ(ValuesOf(All(logicalPortClass), "DeviceID"),
              (std::vector<std::string>{channelKey + " connected to "}));
}

TEST_F(SATALogicalPortTest, AChannelWhoseLinkCannotBeHadHasAKeyThatEndsInABlank) {
    host.Fail(controllerLinksQuery);
    EXPECT_EQ(ValuesOf(All(logicalPortClass), "DeviceID"),
              (std::vector<std::string>{channelKey + " connected to "}));
}

TEST_F(SATALogicalPortTest, ALinkToAnUnknownControllerLeavesTheKeyAsItWas) {
    host.Answer(controllerLinksQuery, {ControllerLink(R"(PCI\X)", channelId)});
    EXPECT_EQ(ValuesOf(All(logicalPortClass), "DeviceID"),
              (std::vector<std::string>{channelKey + " connected to "}));
    host.Answer(controllerLinksQuery,
                {ControllerLink(ahciId, channelId), ControllerLink(R"(PCI\X)", channelId)});
    EXPECT_EQ(ValuesOf(All(logicalPortClass), "DeviceID"),
              (std::vector<std::string>{channelKey + " connected to " + ahciKey}));
}

TEST_F(SATALogicalPortTest, TheLastMatchingLinkNamesTheController) {
    host.Answer(controllersQuery,
                {Controller(ahciId), Controller(channelId), Controller(R"(PCI\B&REV_1)")});
    host.Answer(controllerLinksQuery,
                {ControllerLink(ahciId, channelId), ControllerLink(R"(PCI\B&REV_1)", channelId)});
    EXPECT_EQ(ValuesOf(All(logicalPortClass), "DeviceID"),
              (std::vector<std::string>{channelKey + " connected to PCI&B&REV_1"}));
}

TEST_F(SATALogicalPortTest, MatchesTheChannelWithAndTheControllerWithoutRegardToCase) {
    host.Answer(controllerLinksQuery, {ControllerLink(R"(pci\ven_8086&dev_2922&subsys_12345678)"
                                                      R"(&rev_02\3&1ab2&0&fa)",
                                                      channelId)});
    EXPECT_EQ(ValuesOf(All(logicalPortClass), "DeviceID"),
              (std::vector<std::string>{channelKey + " connected to " + ahciKey}));
    host.Answer(controllerLinksQuery,
                {ControllerLink(ahciId, R"(PCIIDE\IDECHANNEL\4&2e6e9e8&0&0)")});
    EXPECT_EQ(ValuesOf(All(logicalPortClass), "DeviceID"),
              (std::vector<std::string>{channelKey + " connected to "}));
}

TEST_F(SATALogicalPortTest, GoesByThePlugAndPlayIdAndNotByTheDeviceId) {
    host.Answer(controllersQuery, {With(Controller("IDECHANNEL"), {{"PNPDeviceID", "other"}}),
                                   Without(Controller("IDECHANNEL"), "PNPDeviceID"),
                                   With(Controller(channelId), {{"DeviceID", "something else"}})});
    EXPECT_EQ(ValuesOf(All(logicalPortClass), "DeviceID"),
              (std::vector<std::string>{channelKey + " connected to "}));
}

TEST_F(SATALogicalPortTest, IsNoneOfAController) {
    host.Answer(controllersQuery, {Controller(ahciId), Controller(R"(PCI\VEN_1&DEV_2&REV_03\4)")});
    EXPECT_EQ(All(logicalPortClass), RecordList{});
}

TEST_F(SATALogicalPortTest, PublishesChannelsInSourceOrder) {
    host.Answer(controllersQuery, {Controller(R"(IDECHANNEL\2)"), Controller(R"(IDECHANNEL\1)")});
    EXPECT_EQ(
        ValuesOf(Keys(logicalPortClass), "DeviceID"),
        (std::vector<std::string>{"IDECHANNEL&2 connected to ", "IDECHANNEL&1 connected to "}));
}

TEST_F(SATALogicalPortTest, AMissingOrUnknownStatusGivesAnEmptyOperationalStatus) {
    host.Answer(controllersQuery, {Without(Controller(channelId), "Status"),
                                   With(Controller(channelId), {{"Status", "Starting"}}),
                                   With(Controller(channelId), {{"Status", "Pred Fail"}})});
    const RecordList records = All(logicalPortClass);
    EXPECT_EQ(ValuesOf(records, "OperationalStatus"), (std::vector<std::string>{"", "", "5"}));
    EXPECT_EQ(ValuesOf(records, "StatusDescriptions"), std::vector<std::string>{});
}

}  // namespace
}  // namespace qv::test
