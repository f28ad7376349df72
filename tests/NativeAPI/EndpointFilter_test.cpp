// Requests for the associations of one endpoint.
#include "tests/support/AssociatedHost.h"

namespace qv::test {
namespace {

using Values = std::vector<std::string>;

const std::string systemDisk = "QV_WinComputerSystemSATADiskDrive";
const std::string controllerPort = "QV_SATAPortControllerSATALogicalPort";

class EndpointFilterTest : public testing::Test, protected AssociatedHost {
protected:
    RecordList Of(std::string_view className, const EndpointFilter& endpoint) const {
        return api.BuildInstances(className, mode::allProperties, {}, endpoint);
    }
    std::size_t CountOf(std::string_view className, const EndpointFilter& endpoint) const {
        return Of(className, endpoint).size();
    }
    // Returns whether the request is answered without a query.
    bool IsRefused(std::string_view className, const EndpointFilter& endpoint) const {
        host.asked.clear();
        return Of(className, endpoint).empty() && host.asked.empty();
    }
};

TEST_F(EndpointFilterTest, KeepsThePairsOfTheNamedObject) {
    EXPECT_EQ(Of(diskExtent, {DiskPath(disk2Key), {}, {}}),
              Associated(diskExtent, {"Antecedent", "Dependent"},
                         {{DiskPath(disk2Key), ExtentPath(disk2Key)}}));
    EXPECT_EQ(Of(diskExtent, {ExtentPath(disk3Key), {}, {}}),
              Associated(diskExtent, {"Antecedent", "Dependent"},
                         {{DiskPath(disk3Key), ExtentPath(disk3Key)}}));
}

TEST_F(EndpointFilterTest, KeepsEveryPairOfTheNamedObjectInOrder) {
    EXPECT_EQ(Of(systemDisk, {systemPath, {}, {}}), All(systemDisk));
    EXPECT_EQ(All(systemDisk).size(), 3U);
}

TEST_F(EndpointFilterTest, TakesThePathInAnyLetterCase) {
    const std::string path =
        R"(qv_satadiskDRIVE.deviceid="ide&disktwo&5&2&0",SYSTEMNAME="HOST.example.org",)"
        R"(creationclassname="qv_satadiskdrive",systemcreationclassname="qv_wincomputersystem")";
    EXPECT_EQ(Of(diskExtent, {path, {}, {}}), Of(diskExtent, {DiskPath(disk2Key), {}, {}}));
    EXPECT_EQ(CountOf(diskExtent, {path, {}, {}}), 1U);
}

TEST_F(EndpointFilterTest, GivesNothingForAnObjectThatIsNotThere) {
    EXPECT_EQ(Of(diskExtent, {DiskPath("IDE&OTHER"), {}, {}}), RecordList{});
}

TEST_F(EndpointFilterTest, RefusesAnObjectOfAnUnrelatedClass) {
    EXPECT_TRUE(
        IsRefused(controllerPort, {LocationPath("QV_SATADiskLocation", disk1Key, "x"), {}, {}}));
    EXPECT_TRUE(IsRefused(triple, {DiskPath(disk1Key), {}, {}}));
}

TEST_F(EndpointFilterTest, RefusesAnObjectNamedByASuperclass) {
    EXPECT_TRUE(IsRefused(diskExtent, {R"(CIM_DiskDrive.DeviceID="x")", {}, {}}));
}

TEST_F(EndpointFilterTest, ATextWithoutADotNamesNoObject) {
    EXPECT_EQ(Of(diskExtent, {"QV_SATADiskLocation", {}, {}}), All(diskExtent));
}

TEST_F(EndpointFilterTest, TheClassEndsAtTheFirstDot) {
    EXPECT_TRUE(IsRefused(diskExtent, {"QV_SATADiskDrive.x.QV_SATADiskDrive2", "Dependent", {}}));
    EXPECT_FALSE(IsRefused(diskExtent, {"QV_SATADiskDrive.x.y", "Antecedent", {}}));
}

TEST_F(EndpointFilterTest, TheRoleIsThatOfTheNamedObject) {
    EXPECT_EQ(CountOf(diskExtent, {DiskPath(disk1Key), "antecedent", {}}), 1U);
    EXPECT_TRUE(IsRefused(diskExtent, {DiskPath(disk1Key), "Dependent", {}}));
    EXPECT_TRUE(IsRefused(diskExtent, {DiskPath(disk1Key), "Member", {}}));
}

TEST_F(EndpointFilterTest, ARoleWithoutAnObjectMustBeOneOfTheAssociation) {
    EXPECT_EQ(CountOf(diskExtent, {{}, "Dependent", {}}), 3U);
    EXPECT_TRUE(IsRefused(diskExtent, {{}, "Member", {}}));
}

TEST_F(EndpointFilterTest, TheResultClassIsThatOfTheOtherObject) {
    EXPECT_EQ(CountOf(diskExtent, {DiskPath(disk1Key), {}, "qv_satastorageextent"}), 1U);
    EXPECT_TRUE(IsRefused(diskExtent, {DiskPath(disk1Key), {}, "QV_SATADiskDrive"}));
    EXPECT_TRUE(IsRefused(diskExtent, {DiskPath(disk1Key), {}, "QV_Unknown"}));
}

TEST_F(EndpointFilterTest, TheResultClassMayBeAnAncestor) {
    EXPECT_EQ(CountOf(diskExtent, {DiskPath(disk1Key), {}, "CIM_StorageExtent"}), 1U);
    EXPECT_EQ(CountOf(diskExtent, {DiskPath(disk1Key), {}, "cim_managedelement"}), 1U);
    EXPECT_TRUE(IsRefused(diskExtent, {DiskPath(disk1Key), {}, "CIM_DiskDrive"}));
}

TEST_F(EndpointFilterTest, TheSoftwareOfAControllerIsNoSoftwareIdentityOfTheVendor) {
    const char* name = "QV_SATAPortControllerFWSATAPortController";
    EXPECT_EQ(CountOf(name, {ControllerPath(ahciKey), {}, "CIM_SoftwareIdentity"}), 1U);
    EXPECT_TRUE(IsRefused(name, {ControllerPath(ahciKey), {}, "QV_SoftwareIdentity"}));
}

TEST_F(EndpointFilterTest, RoleAndResultClassAreOfDifferentEnds) {
    EXPECT_EQ(CountOf(diskExtent, {{}, "Antecedent", "QV_SATAStorageExtent"}), 3U);
    EXPECT_TRUE(IsRefused(diskExtent, {{}, "Antecedent", "QV_SATADiskDrive"}));
}

TEST_F(EndpointFilterTest, AppliesToEachEndOfATriple) {
    const Values found = {ExtentPath(disk1Key)};
    const std::string target = TargetPath(disk1Key + " connected to " + channelAKey);
    EXPECT_EQ(ValuesOf(Of(triple, {InitiatorPath(channelAKey), {}, {}}), "LogicalUnit"), found);
    EXPECT_EQ(ValuesOf(Of(triple, {target, "Target", {}}), "LogicalUnit"), found);
    EXPECT_EQ(
        ValuesOf(Of(triple, {ExtentPath(disk1Key), {}, "CIM_ProtocolEndpoint"}), "LogicalUnit"),
        found);
    EXPECT_EQ(Of(triple, {InitiatorPath(channelBKey), {}, {}}), RecordList{});
    EXPECT_EQ(Of(triple, {ExtentPath(disk2Key), {}, {}}), RecordList{});
    EXPECT_TRUE(IsRefused(triple, {ExtentPath(disk1Key), "Target", {}}));
    EXPECT_TRUE(IsRefused(triple, {ExtentPath(disk1Key), {}, "QV_SATAStorageExtent"}));
}

TEST_F(EndpointFilterTest, CombinesWithThePathOfTheAssociation) {
    const RecordList all = All(diskExtent);
    const std::string path = BuildObjectPath(all.at(1));
    EXPECT_EQ(
        api.BuildInstances(diskExtent, mode::allProperties, path, {DiskPath(disk2Key), {}, {}}),
        RecordList{all.at(1)});
    EXPECT_EQ(
        api.BuildInstances(diskExtent, mode::allProperties, path, {DiskPath(disk1Key), {}, {}}),
        RecordList{});
}

TEST_F(EndpointFilterTest, InstanceClassesPassOverIt) {
    EXPECT_EQ(Of("QV_SATADiskDrive", {DiskPath(disk1Key), "Member", "QV_Unknown"}),
              All("QV_SATADiskDrive"));
}

}  // namespace
}  // namespace qv::test
