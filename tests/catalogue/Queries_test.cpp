// Which queries each instance class runs, in which order, how often and in which namespace: for all
// instances, for their keys and for the one with a path.
#include <gtest/gtest.h>

#include "catalogue/Classes.h"
#include "tests/support/Builders.h"
#include "tests/support/Records.h"

namespace qv::test {
namespace {

using Queries = std::vector<std::string>;

const std::string disks = R"(root\CIMv2: SELECT * FROM Win32_DiskDrive)";
const std::string media = R"(root\CIMv2: SELECT * FROM Win32_PhysicalMedia)";
const std::string partitionLinks = R"(root\CIMv2: SELECT * FROM Win32_DiskDriveToDiskPartition)";
const std::string partitions = R"(root\CIMv2: SELECT * FROM Win32_DiskPartition)";
const std::string controllers = R"(root\CIMv2: SELECT * FROM Win32_IDEController)";
const std::string deviceLinks = R"(root\CIMv2: SELECT * FROM Win32_IDEControllerDevice)";
const std::string publishedDisks = R"(root\QVQ: SELECT * FROM QV_SATADiskDrive)";

const Queries ofSoftware{
    controllers,
    R"(root\CIMv2: ASSOCIATORS OF {Win32_IDEController.DeviceID="PCI\\VEN_8086&DEV_29&REV_02\\3"} )"
    "where assocclass=Win32_PnPDevice",
    R"(root\CIMv2: ASSOCIATORS OF {Win32_PnPEntity.DeviceID="PCI\\VEN_8086&DEV_29&REV_02\\3"} )"
    "where assocclass=Win32_SystemDriverPNPEntity",
    R"(root\CIMv2: ASSOCIATORS OF {Win32_IDEController.DeviceID="PCIIDE\\IDECHANNEL\\4"} )"
    "where assocclass=Win32_PnPDevice",
    R"(root\CIMv2: ASSOCIATORS OF {Win32_PnPEntity.DeviceID="PCIIDE\\IDECHANNEL\\4"} )"
    "where assocclass=Win32_SystemDriverPNPEntity"};

/// A class, the path of one of its instances and the queries.
struct ClassQueries {
    const char* className;
    std::string keys;  ///< the path behind the class name and the point
    Queries all;
    Queries keysOnly;
    Queries byPath;
};

// Most classes ask for the same whatever is wanted.
ClassQueries Always(const char* className, const std::string& keys, const Queries& queries) {
    return {className, keys, queries, queries, queries};
}

// The classes with a serial number ask for the media of each instance that is filled.
ClassQueries WithMedia(const char* className, const std::string& keys) {
    return {className, keys, {disks, media, media}, {disks}, {disks, media}};
}

// The keys of the host and the class, in the order of most classes.
std::string OnHost(const std::string& className) {
    return R"(SystemName="host.example.org",CreationClassName=")" + className +
           R"(",SystemCreationClassName="QV_WinComputerSystem")";
}

ClassQueries SoftwareQueries(const char* className) {
    return Always(
        className,
        R"(InstanceID="QV:)" + std::string(className) + R"(:PCI&VEN_8086&DEV_29&REV_02&3")",
        ofSoftware);
}

const ClassQueries table[] = {
    Always("QV_SATAPortController",
           OnHost("QV_SATAPortController") + R"(,DeviceID="PCI&VEN_8086&DEV_29&REV_02&3")",
           {controllers}),
    WithMedia("QV_SATADiskDrive", R"(DeviceID="IDE&B&1",)" + OnHost("QV_SATADiskDrive")),
    Always("QV_SATAStorageExtent", OnHost("QV_SATAStorageExtent") + R"(,DeviceID="IDE&B&1")",
           {disks, partitionLinks, partitions}),
    WithMedia("QV_SATADiskDriveFW", R"(InstanceID="IDE&B&1")"),
    Always("QV_SATAPortControllerPhysicalPackage",
           R"(CreationClassName="QV_SATAPortControllerPhysicalPackage",)"
           R"(Tag="PCI&VEN_8086&DEV_29&REV_02&3")",
           {controllers}),
    WithMedia("QV_SATADiskPhysicalPackage",
              R"(CreationClassName="QV_SATADiskPhysicalPackage",Tag="IDE&B&1")"),
    Always("QV_SATAStorageCollection",
           R"(InstanceID="host.example.org QV:QV_SATAStorageCollection")", {publishedDisks}),
    Always("QV_SATADiskLocation", R"(Name="IDE&B&1",PhysicalPosition="the caption")",
           {disks, deviceLinks, controllers}),
    Always(
        "QV_SATAControllerLocation",
        R"(Name="PCI&VEN_8086&DEV_29&REV_02&3",PhysicalPosition="the caption with Device ID: 29")",
        {controllers}),
    Always("QV_SATAPortControllerProduct",
           R"(Name="PCI&VEN_8086&DEV_29&REV_02&3",Vendor="the maker",)"
           R"(IdentifyingNumber="the caption with Revision number: 02",Version="02")",
           {controllers}),
    Always("QV_SATALogicalPort",
           R"(DeviceID="PCIIDE&IDECHANNEL&4 connected to PCI&VEN_8086&DEV_29&REV_02&3",)" +
               OnHost("QV_SATALogicalPort"),
           {controllers, controllers, deviceLinks}),
    Always("QV_ISATAProtocolEndpoint",
           R"(SystemName="host.example.org",SystemCreationClassName="QV_WinComputerSystem",)"
           R"(CreationClassName="QV_ISATAProtocolEndpoint",Name="PCIIDE&IDECHANNEL&4")",
           {controllers}),
    Always(
        "QV_TSATAProtocolEndpoint",
        R"(Name="IDE&B&1 connected to PCI&VEN_8086&DEV_29&REV_02&3",SystemName="host.example.org",)"
        R"(SystemCreationClassName="QV_WinComputerSystem",)"
        R"(CreationClassName="QV_TSATAProtocolEndpoint")",
        {disks, deviceLinks, controllers}),
    SoftwareQueries("QV_SATAPortControllerDriver"),
    SoftwareQueries("QV_SATAPortControllerFW"),
    SoftwareQueries("QV_SATAPortControllerBIOS"),
    Always("QV_WinComputerSystem",
           R"(CreationClassName="QV_WinComputerSystem",Name="host.example.org")", {}),
};

// A controller with a channel, a disk on either and a disk of another interface type.
class QueriesTest : public Builders, public testing::TestWithParam<ClassQueries> {
protected:
    QueriesTest() {
        const std::string controller = R"(PCI\VEN_8086&DEV_29&REV_02\3)";
        const std::string channel = R"(PCIIDE\IDECHANNEL\4)";
        const std::string drive1 = R"(\\.\PHYSICALDRIVE1)";
        const std::string drive2 = R"(\\.\PHYSICALDRIVE2)";
        host.Answer(disksQuery, {Disk(R"(IDE\A\1)", drive0),
                                 With(Disk(R"(USB\C\1)", drive2), {{"InterfaceType", "USB"}}),
                                 Disk(R"(IDE\B\1)", drive1)});
        host.Answer(mediaQuery, {Media(drive0, "SA"), Media(drive1, "SB"), Media(drive2, "SC")});
        host.Answer(controllersQuery, {Controller(controller), Controller(channel)});
        host.Answer(controllerLinksQuery,
                    {ControllerLink(controller, channel), ControllerLink(channel, R"(IDE\A\1)"),
                     ControllerLink(controller, R"(IDE\B\1)")});
        host.Answer(partitionLinksQuery, {PartitionLink(drive0, "Disk #0, Partition #0")});
        host.Answer(partitionsQuery, {Partition("Disk #0, Partition #0")});
        host.Answer(publishedDisksQuery, {});
        ServeWith(host, controller, "pciide");
        ServeWith(host, channel, "atapi");
    }
};

TEST_P(QueriesTest, AllInstances) {
    All(GetParam().className);
    EXPECT_EQ(host.asked, GetParam().all);
}

TEST_P(QueriesTest, TheirKeys) {
    Keys(GetParam().className);
    EXPECT_EQ(host.asked, GetParam().keysOnly);
}

TEST_P(QueriesTest, TheOneWithAPath) {
    const std::string path = std::string(GetParam().className) + "." + GetParam().keys;
    EXPECT_EQ(At(GetParam().className, path).size(), 1U);
    EXPECT_EQ(host.asked, GetParam().byPath);
}

TEST(Queries, TableHoldsEveryInstanceClassInTheOrderOfTheCatalogue) {
    std::vector<std::string_view> inTable;
    for (const ClassQueries& one : table) {
        inTable.emplace_back(one.className);
    }
    std::vector<std::string_view> published;
    for (const PublishedClass& one : PublishedClasses().first(instanceClassCount)) {
        published.push_back(one.name);
    }
    EXPECT_EQ(inTable, published);
}

INSTANTIATE_TEST_SUITE_P(EachClass, QueriesTest, testing::ValuesIn(table), [](const auto& one) {
    return std::string(one.param.className).substr(3);
});

}  // namespace
}  // namespace qv::test
