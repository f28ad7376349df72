// The rules by which associations are built from their endpoints, whatever the class.
#include <algorithm>
#include <new>

#include "catalogue/Catalogue.h"
#include "tests/support/AssociatedHost.h"

namespace qv::test {
namespace {

using Values = std::vector<std::string>;

const std::string diskFirmware = "QV_SATADiskDriveDiskDriveFW";
const std::string targetDisk = "QV_TSATAProtocolEndpointSATADiskDrive";
const Request any{"QV_Any", mode::keysOnly, {}};

class AssociationsTest : public testing::Test, protected AssociatedHost {
protected:
    // Returns the number of pairs of disks and extents under a rule and a further condition.
    std::size_t PairsOfDisksAndExtents(MatchRule rule, const FurtherCondition& condition) const {
        return api
            .BuildAssociationPairs(any, {"Antecedent", "QV_SATADiskDrive", "DeviceID"},
                                   {"Dependent", "QV_SATAStorageExtent", "DeviceID"}, rule,
                                   condition)
            .size();
    }
};

TEST_F(AssociationsTest, AreOrderedByTheFirstEndpointsThenByTheSecond) {
    const RecordList pairs =
        api.BuildAssociationPairs(any, {"First", "QV_SATAPortController", "DeviceID"},
                                  {"Second", "QV_WinComputerSystem", "Name"}, MatchRule::always);
    EXPECT_EQ(pairs, Associated("QV_Any", {"First", "Second"},
                                {{ControllerPath(ahciKey), systemPath},
                                 {ControllerPath(ideKey), systemPath}}));
    const RecordList turned = api.BuildAssociationPairs(
        any, {"First", "QV_SATAPortController", "DeviceID"},
        {"Second", "QV_ISATAProtocolEndpoint", "Name"}, MatchRule::always);
    EXPECT_EQ(turned, Associated("QV_Any", {"First", "Second"},
                                 {{ControllerPath(ahciKey), InitiatorPath(channelAKey)},
                                  {ControllerPath(ahciKey), InitiatorPath(channelBKey)},
                                  {ControllerPath(ideKey), InitiatorPath(channelAKey)},
                                  {ControllerPath(ideKey), InitiatorPath(channelBKey)}}));
}

TEST_F(AssociationsTest, BuildTheFirstClassThenTheSecondEachOnce) {
    All(targetDisk);
    EXPECT_EQ(host.asked,
              InCimv2({disksQuery, controllerLinksQuery, controllersQuery, disksQuery}));
}

TEST_F(AssociationsTest, TriplesBuildTheThreeClassesInOrderEachOnce) {
    All(triple);
    EXPECT_EQ(host.asked, InCimv2({controllersQuery, disksQuery, controllerLinksQuery,
                                   controllersQuery, disksQuery, partitionLinksQuery}));
}

TEST_F(AssociationsTest, BuildTheEndpointsAfreshForEveryRequest) {
    All(diskExtent);
    host.Answer(disksQuery, {Disk(disk2)});
    EXPECT_EQ(ValuesOf(All(diskExtent), "Antecedent"), Values{DiskPath(disk2Key)});
}

TEST_F(AssociationsTest, CarryTheClassAsItWasSpelled) {
    const RecordList records = All("qv_sataDISKdriveStorageExtent");
    ASSERT_EQ(records.size(), 3U);
    EXPECT_EQ(records[0].className, "qv_sataDISKdriveStorageExtent");
    EXPECT_EQ(ValuesOf(records, "Dependent"), ValuesOf(All(diskExtent), "Dependent"));
}

TEST_F(AssociationsTest, AreTheSameWhenOnlyKeysAreAskedFor) {
    EXPECT_EQ(Keys(diskFirmware), All(diskFirmware));
    EXPECT_EQ(Keys(triple), All(triple));
}

TEST_F(AssociationsTest, AreNoneWithoutTargets) {
    host.Answer(disksQuery, {});
    EXPECT_EQ(All(targetDisk), RecordList{});
    EXPECT_EQ(All(triple), RecordList{});
}

TEST_F(AssociationsTest, JoinADiskAndItsFirmwareThatDifferInLetterCaseOnly) {
    host.Answer(disksQuery, {Disk(R"(IDE\Disk\5)"), Disk(R"(ide\disk\5)")});
    EXPECT_EQ(ValuesOf(All(diskFirmware), "Dependent"),
              (Values{DiskPath("IDE&Disk&5"), DiskPath("ide&disk&5"), DiskPath("IDE&Disk&5"),
                      DiskPath("ide&disk&5")}));
}

TEST_F(AssociationsTest, DoNotJoinByPartsThatDifferInLetterCase) {
    host.Answer(controllerLinksQuery, {ControllerLink(channelA, R"(ide\diskone\5&1&0)")});
    EXPECT_EQ(ValuesOf(All(targetDisk), "ManagedElement"), Values{DiskPath(disk1Key)});
    host.Answer(disksQuery, {Disk(R"(IDE\D\5)"), Disk(R"(ide\d\5)")});
    host.Answer(controllerLinksQuery, {ControllerLink(channelA, R"(IDE\D\5)")});
    EXPECT_EQ(ValuesOf(All(targetDisk), "ManagedElement"),
              (Values{DiskPath("IDE&D&5"), DiskPath("ide&d&5")}));
}

TEST_F(AssociationsTest, JoinAnEndpointWithEveryDiskWhoseIdItsNameContains) {
    host.Answer(disksQuery, {Disk(R"(IDE\D\5&10)"), Disk(R"(IDE\D\5&1)")});
    host.Answer(controllerLinksQuery, {ControllerLink(channelA, R"(IDE\D\5&10)"),
                                       ControllerLink(channelA, R"(IDE\D\5&1)")});
    const std::string channel = " connected to " + channelAKey;
    EXPECT_EQ(All(targetDisk),
              Associated(targetDisk, {"AvailableSAP", "ManagedElement"},
                         {{TargetPath("IDE&D&5&10" + channel), DiskPath("IDE&D&5&10")},
                          {TargetPath("IDE&D&5&10" + channel), DiskPath("IDE&D&5&1")},
                          {TargetPath("IDE&D&5&1" + channel), DiskPath("IDE&D&5&1")}}));
    EXPECT_EQ(ValuesOf(All(triple), "LogicalUnit"),
              (Values{ExtentPath("IDE&D&5&10"), ExtentPath("IDE&D&5&1"), ExtentPath("IDE&D&5&1")}));
}

TEST_F(AssociationsTest, JoinAPortWithEveryControllerWhoseIdItsOwnContains) {
    const std::string id = R"(PCI\VEN_8086&DEV_7010&REV_01\3&)";
    host.Answer(controllersQuery, {Controller(id + "1"), Controller(id + "11"),
                                   Controller(channelA), Controller(channelB)});
    host.Answer(controllerLinksQuery,
                {ControllerLink(id + "1", channelA), ControllerLink(id + "11", channelB)});
    const std::string key = "PCI&VEN_8086&DEV_7010&REV_01&3&";
    const std::string portA = PortPath(channelAKey + " connected to " + key + "1");
    const std::string portB = PortPath(channelBKey + " connected to " + key + "11");
    const std::string controllerPort = "QV_SATAPortControllerSATALogicalPort";
    EXPECT_EQ(All(controllerPort), Associated(controllerPort, {"Antecedent", "Dependent"},
                                              {{ControllerPath(key + "1"), portA},
                                               {ControllerPath(key + "1"), portB},
                                               {ControllerPath(key + "11"), portB}}));
}

TEST_F(AssociationsTest, JoinATargetWithEveryInitiatorWhoseNameItsOwnContains) {
    const std::string id = R"(PCIIDE\IDECHANNEL\4&)";
    host.Answer(controllersQuery, {Controller(id + "1"), Controller(id + "10")});
    host.Answer(disksQuery, {Disk(disk1), Disk(disk2)});
    host.Answer(controllerLinksQuery,
                {ControllerLink(id + "1", disk1), ControllerLink(id + "10", disk2)});
    const std::string key = "PCIIDE&IDECHANNEL&4&";
    const std::string target1 = TargetPath(disk1Key + " connected to " + key + "1");
    const std::string target2 = TargetPath(disk2Key + " connected to " + key + "10");
    EXPECT_EQ(All(triple),
              WithAdded(Associated(triple, {"Initiator", "Target", "LogicalUnit"},
                                   {{InitiatorPath(key + "1"), target1, ExtentPath(disk1Key)},
                                    {InitiatorPath(key + "1"), target2, ExtentPath(disk2Key)},
                                    {InitiatorPath(key + "10"), target2, ExtentPath(disk2Key)}}),
                        Number("State", "2")));
}

TEST_F(AssociationsTest, TakeAMissingKeyForAnEmptyOne) {
    ForgetHostName();
    // The host's Name and the disks' SystemName are both missing: equal.
    EXPECT_EQ(All("QV_WinComputerSystemSATADiskDrive").size(), 3U);
    // It is contained in every text.
    EXPECT_EQ(All("QV_SATAHostedCollection").size(), 1U);
}

TEST_F(AssociationsTest, EscapeDoubleQuotesInTheReferences) {
    host.Answer(disksQuery, {Disk(R"(IDE\D"5)")});
    EXPECT_EQ(ValuesOf(All("QV_SATADiskPhysicalPackageSATADiskDrive"), "Antecedent"),
              Values{PackagePath("QV_SATADiskPhysicalPackage", R"(IDE&D\"5)")});
}

TEST_F(AssociationsTest, AreNoneWhenAnEndpointCannotBeBuilt) {
    host.Fail(publishedDisksQuery);
    EXPECT_EQ(All("QV_SATAHostedCollection"), RecordList{});
    EXPECT_EQ(All("QV_SATAStorageCollectionSATADiskDrive"), RecordList{});
    host.Fail(controllersQuery);
    EXPECT_EQ(All("QV_SATAPortControllerSATALogicalPort"), RecordList{});
}

TEST_F(AssociationsTest, BuildTheSecondClassThoughTheFirstHasNoInstances) {
    host.Answer(controllersQuery, {});
    All("QV_SATAPortControllerPhysicalPackageSATAControllerLocation");
    EXPECT_EQ(host.asked, InCimv2({controllersQuery, controllersQuery}));
}

// The first query of the text throws.
class RaisingHost : public ScriptedHost {
public:
    Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                       platform::Rows& rows) const override {
        if (query == raisingQuery) {
            throw std::bad_alloc();
        }
        return ScriptedHost::RunWqlQuery(nameSpace, query, rows);
    }

    std::string raisingQuery;
};

TEST_F(AssociationsTest, LetErrorsOfTheEndpointsThrough) {
    RaisingHost raising;
    raising.raisingQuery = controllersQuery;
    const NativeAPI raisingApi(PublishedCatalogue(), raising, raising, raising);
    const auto build = [&raisingApi](const char* name) {
        raisingApi.BuildAllInstances(name, mode::allProperties);
    };
    EXPECT_THROW(build("QV_SATALogicalPortISATAProtocolEndpoint"), std::bad_alloc);
    EXPECT_THROW(build("QV_WinComputerSystemSATAPortController"), std::bad_alloc);
    EXPECT_THROW(build("QV_SATAInitiatorTargetLogicalUnitPath"), std::bad_alloc);
}

std::string InUpperCase(std::string text) {
    std::ranges::transform(text, text.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - ' ') : letter;
    });
    return text;
}

TEST_F(AssociationsTest, AreFoundByTheirPathInAnyLetterCase) {
    const RecordList all = All(diskFirmware);
    ASSERT_EQ(all.size(), 3U);
    const std::string path =
        R"(QV_SATADiskDriveDiskDriveFW.Antecedent="QV_SATADiskDriveFW.InstanceID=\")" + disk2Key +
        R"(\"",Dependent="QV_SATADiskDrive.DeviceID=\")" + disk2Key +
        R"(\",SystemName=\"host.example.org\",CreationClassName=\"QV_SATADiskDrive\",)"
        R"(SystemCreationClassName=\"QV_WinComputerSystem\"")";
    EXPECT_EQ(At(diskFirmware, path), RecordList{all[1]});
    EXPECT_EQ(At(diskFirmware, InUpperCase(path)), RecordList{all[1]});
}

TEST_F(AssociationsTest, AreNoneAtAPathThatNamesNoPair) {
    const RecordList all = All(diskFirmware);
    InstanceRecord crossed = all[0];
    crossed.properties[1] = all[1].properties[1];
    EXPECT_EQ(At(diskFirmware, BuildObjectPath(crossed)), RecordList{});
    EXPECT_EQ(At(diskFirmware, diskFirmware + ".Antecedent=\"x\""), RecordList{});
}

TEST_F(AssociationsTest, TriplesAreFoundByTheirPath) {
    host.Answer(controllerLinksQuery,
                {ControllerLink(channelA, disk1), ControllerLink(channelB, disk2)});
    const RecordList all = All(triple);
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(At(triple, BuildObjectPath(all[1])), RecordList{all[1]});
}

TEST_F(AssociationsTest, MeetTheFurtherConditionToo) {
    EXPECT_EQ(PairsOfDisksAndExtents(MatchRule::always, {}), 9U);
    EXPECT_EQ(PairsOfDisksAndExtents(MatchRule::always, {"DeviceID", "DeviceID", MatchRule::equal}),
              3U);
    EXPECT_EQ(
        PairsOfDisksAndExtents(MatchRule::equal, {"SystemName", "SystemName", MatchRule::equal}),
        3U);
    EXPECT_EQ(
        PairsOfDisksAndExtents(MatchRule::equal, {"DeviceID", "SystemName", MatchRule::equal}), 0U);
    EXPECT_EQ(PairsOfDisksAndExtents(MatchRule::equal, {"", "", static_cast<MatchRule>(11)}), 0U);
}

}  // namespace
}  // namespace qv::test
