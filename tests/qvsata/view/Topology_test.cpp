#include "qvsata/view/Topology.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "tests/qvsata/view/OsDisks.h"
#include "tests/qvsata/view/Published.h"

namespace qv::test {
namespace {

using testing::SizeIs;
using view::BuildTopology;
using view::PublishedHost;
using view::Topology;

/// A host with one channel and one disk on a controller, associated as published.
class TopologyTest : public testing::Test {
protected:
    void Add(PublishedObject object) { host_[object.className].push_back(std::move(object)); }

    PublishedObject AddDisk(const std::string& id) {
        PublishedObject disk = Instance("QV_SATADiskDrive", "DeviceID", id);
        Add(disk);
        return disk;
    }

    /// Adds the target endpoint of a connected disk.
    PublishedObject AddTarget(const PublishedObject& disk, const std::string& connectedTo) {
        PublishedObject target = Instance("QV_TSATAProtocolEndpoint", "Name",
                                          disk.Text("DeviceID") + " connected to " + connectedTo);
        Add(target);
        JoinTarget(target, disk);
        return target;
    }

    void JoinTarget(const PublishedObject& target, const PublishedObject& disk) {
        Add(Link("QV_TSATAProtocolEndpointSATADiskDrive", "AvailableSAP", target, "ManagedElement",
                 disk));
    }

    PublishedObject AddController(const std::string& id) {
        PublishedObject controller = Instance("QV_SATAPortController", "DeviceID", id);
        Add(controller);
        return controller;
    }

    /// Adds a channel of a controller; returns its initiator endpoint.
    PublishedObject AddChannel(const std::string& id, const PublishedObject& controller) {
        const PublishedObject port = Instance("QV_SATALogicalPort", "DeviceID",
                                              id + " connected to " + controller.Text("DeviceID"));
        PublishedObject initiator = Instance("QV_ISATAProtocolEndpoint", "Name", id);
        Add(port);
        Add(Link("QV_SATAPortControllerSATALogicalPort", "Antecedent", controller, "Dependent",
                 port));
        Add(Link("QV_SATALogicalPortISATAProtocolEndpoint", "Antecedent", port, "Dependent",
                 initiator));
        return initiator;
    }

    void JoinPath(const PublishedObject& initiator, const PublishedObject& target) {
        Add(Link("QV_SATAInitiatorTargetLogicalUnitPath", "Initiator", initiator, "Target",
                 target));
    }

    PublishedHost host_;
};

TEST_F(TopologyTest, OfNothingIsEmpty) {
    const Topology topology = BuildTopology(host_);
    EXPECT_EQ(topology.computer, "");
    EXPECT_THAT(topology.controllers, SizeIs(0));
    EXPECT_FALSE(topology.collection.has_value());
}

TEST_F(TopologyTest, HangsADiskOffTheChannelThatItsPathLeadsTo) {
    const auto initiator = AddChannel("CH0", AddController("C"));
    JoinPath(initiator, AddTarget(AddDisk("D"), "CH0"));
    const Topology topology = BuildTopology(host_);
    ASSERT_THAT(topology.controllers, SizeIs(1));
    ASSERT_THAT(topology.controllers[0].channels, SizeIs(1));
    ASSERT_THAT(topology.controllers[0].channels[0].disks, SizeIs(1));
    EXPECT_EQ(topology.controllers[0].channels[0].disks[0].deviceId, "D");
    EXPECT_THAT(DisksOf(topology), SizeIs(1));
}

TEST_F(TopologyTest, HangsADiskWithoutAPathOffTheControllerThatItsEndpointNames) {
    AddController("A");
    AddController("B");
    AddTarget(AddDisk("D"), "B");
    const Topology topology = BuildTopology(host_);
    EXPECT_THAT(topology.controllers[0].disks, SizeIs(0));
    EXPECT_THAT(topology.controllers[1].disks, SizeIs(1));
}

/// Returns an instance as it is published when a key has no value: without a path.
PublishedObject Pathless(PublishedObject object) {
    object.path.clear();
    return object;
}

TEST_F(TopologyTest, HangsDisksWithoutPathsOffTheirOwnChannels) {
    const auto controller = Instance("QV_SATAPortController", "DeviceID", "C");
    const auto firstDisk = Instance("QV_SATADiskDrive", "DeviceID", "D0");
    const auto secondDisk = Instance("QV_SATADiskDrive", "DeviceID", "D1");
    JoinPath(AddChannel("CH0", controller), AddTarget(firstDisk, "CH0"));
    JoinPath(AddChannel("CH1", controller), AddTarget(secondDisk, "CH1"));
    Add(Pathless(Instance("QV_SATAPortController", "DeviceID", "other")));
    Add(Pathless(controller));
    Add(Pathless(firstDisk));
    Add(Pathless(secondDisk));
    std::ranges::transform(host_["QV_SATALogicalPort"], host_["QV_SATALogicalPort"].begin(),
                           Pathless);
    const Topology topology = BuildTopology(host_);
    ASSERT_THAT(topology.controllers[0].channels, SizeIs(0));
    ASSERT_THAT(topology.controllers[1].channels, SizeIs(2));
    EXPECT_EQ(topology.controllers[1].channels[0].disks.at(0).deviceId, "D0");
    EXPECT_EQ(topology.controllers[1].channels[1].disks.at(0).deviceId, "D1");
}

TEST_F(TopologyTest, KnowsWhereUnpublishedDisksAreAttached) {
    const auto controller = AddController("PCI&A");
    AddController("PCI&B");
    AddChannel("PCIIDE&0", controller);
    AddChannel("PCIIDE&1", controller);
    view::OsDisks disks{{NumberedDisk(0, {2, "OK"}), NumberedDisk(1, {2, "OK"})}};
    disks.disks[0].attachment = "PCIIDE\\1";
    disks.disks[0].whyUnpublished = "bus is SCSI";
    disks.disks[1].attachment = "PCI\\B";
    disks.disks[1].whyUnpublished = "bus unknown";
    const Topology topology = BuildTopology(host_, disks);
    EXPECT_FALSE(topology.controllers[0].hasUnpublished);
    EXPECT_FALSE(topology.controllers[0].channels[0].hasUnpublished);
    EXPECT_TRUE(topology.controllers[0].channels[1].hasUnpublished);
    EXPECT_TRUE(topology.controllers[1].hasUnpublished);
}

TEST_F(TopologyTest, KeepsDisksWithoutAnEndpointApart) {
    AddController("C");
    AddDisk("D");
    EXPECT_THAT(BuildTopology(host_).looseDisks, SizeIs(1));
}

TEST_F(TopologyTest, TakesTheChannelWhoseIdIsLongestWhenSeveralMatch) {
    const auto controller = AddController("C");
    const auto one = AddChannel("CH1", controller);
    const auto ten = AddChannel("CH10", controller);
    const auto target = AddTarget(AddDisk("D"), "CH10");
    JoinPath(ten, target);
    JoinPath(one, target);
    const Topology topology = BuildTopology(host_);
    EXPECT_THAT(topology.controllers[0].channels[0].disks, SizeIs(0));
    EXPECT_THAT(topology.controllers[0].channels[1].disks, SizeIs(1));
}

TEST_F(TopologyTest, KeepsDisksApartWhoseIdsBeginAlike) {
    AddController("A");
    AddController("B");
    const auto shorter = AddDisk("D1");
    const auto longer = AddDisk("D10");
    AddTarget(shorter, "A");
    JoinTarget(AddTarget(longer, "B"), shorter);
    const Topology topology = BuildTopology(host_);
    ASSERT_THAT(topology.controllers[0].disks, SizeIs(1));
    EXPECT_EQ(topology.controllers[0].disks[0].deviceId, "D1");
    EXPECT_EQ(topology.controllers[1].disks[0].deviceId, "D10");
}

TEST_F(TopologyTest, KeepsChannelsWithoutAControllerApart) {
    Add(Instance("QV_SATALogicalPort", "DeviceID", "CH0 connected to "));
    EXPECT_THAT(BuildTopology(host_).looseChannels, SizeIs(1));
}

TEST_F(TopologyTest, GivesAControllerItsDriver) {
    auto driver = Instance("QV_SATAPortControllerDriver", "InstanceID", "QV:C");
    driver.values["Name"] = "msahci";
    Add(driver);
    Add(Link("QV_SATAPortControllerDriverSATAPortController", "Antecedent", driver, "Dependent",
             AddController("C")));
    const Topology topology = BuildTopology(host_);
    ASSERT_TRUE(topology.controllers[0].driver.has_value());
    EXPECT_EQ(topology.controllers[0].driver->name, "msahci");
    EXPECT_FALSE(topology.controllers[0].bios.has_value());
}

TEST_F(TopologyTest, TrimsSerialNumbersAndReadsSizes) {
    auto disk = Instance("QV_SATADiskDrive", "DeviceID", "D");
    disk.values["SerialNumber"] = "   S1 ";
    disk.values["Size"] = "18446744073709551615";
    Add(disk);
    const Topology topology = BuildTopology(host_);
    EXPECT_EQ(topology.looseDisks[0].serialNumber, "S1");
    EXPECT_EQ(topology.looseDisks[0].size, 18446744073709551615U);
}

TEST_F(TopologyTest, TakesTheDriveNumberAndThePredictionFromTheDiskWithItsId) {
    AddDisk("IDE&DISKA&5");
    AddDisk("IDE&DISKB&5");
    view::OsDisk osDisk = NumberedDisk(4, {2, "OK"});
    osDisk.deviceId = R"(IDE\DiskB\5)";
    osDisk.failureIsPredicted = true;
    const Topology topology = BuildTopology(host_, {{osDisk}});
    EXPECT_FALSE(topology.looseDisks[0].number.has_value());
    EXPECT_FALSE(topology.looseDisks[0].failureIsPredicted.has_value());
    EXPECT_EQ(topology.looseDisks[1].number, 4);
    EXPECT_EQ(topology.looseDisks[1].failureIsPredicted, true);
}

TEST_F(TopologyTest, CountsTheDisksOfWhichNoPredictionIsKnown) {
    view::OsDisk known = NumberedDisk(1, {2, "OK"});
    known.failureIsPredicted = false;
    EXPECT_EQ(BuildTopology(host_, {{known, NumberedDisk(2, {2, "OK"})}}).unknownPredictions, 1U);
}

TEST_F(TopologyTest, TellsDisksWithOneIdApartByTheirIndex) {
    for (const std::int64_t index : {2, 1, 7}) {
        auto disk = Instance("QV_SATADiskDrive", "DeviceID", "D");
        disk.values["Index"] = index;
        Add(disk);
    }
    view::OsDisk first = NumberedDisk(1, {2, "OK"});
    first.deviceId = "D";
    view::OsDisk second = NumberedDisk(2, {2, "OK"});
    second.deviceId = "D";
    const Topology topology = BuildTopology(host_, {{first, second}});
    EXPECT_EQ(topology.looseDisks[0].number, 2);
    EXPECT_EQ(topology.looseDisks[1].number, 1);
    EXPECT_FALSE(topology.looseDisks[2].number.has_value());
}

TEST_F(TopologyTest, KeepsTheDisksThatAreNotPublished) {
    view::OsDisk other = NumberedDisk(1, {2, "OK"});
    other.whyUnpublished = "bus is USB";
    EXPECT_EQ(BuildTopology(host_, {{other, NumberedDisk(2, {2, "OK"})}}).unpublished.size(), 1U);
}

TEST_F(TopologyTest, TakesFlagsFromTheDisksExtent) {
    auto extent = Instance("QV_SATAStorageExtent", "DeviceID", "D");
    extent.values["BootPartition"] = true;
    Add(extent);
    Add(Link("QV_SATADiskDriveStorageExtent", "Antecedent", AddDisk("D"), "Dependent", extent));
    const Topology topology = BuildTopology(host_);
    EXPECT_EQ(topology.looseDisks[0].bootPartition, true);
    EXPECT_FALSE(topology.looseDisks[0].bootable.has_value());
}

TEST_F(TopologyTest, TakesFlagsFromTheExtentOfEachDiskWhateverTheirOrder) {
    const auto first = AddDisk("D1");
    const auto second = AddDisk("D2");
    AddDisk("D3");
    for (const PublishedObject& disk : {second, first}) {
        auto extent = Instance("QV_SATAStorageExtent", "DeviceID", disk.Text("DeviceID"));
        extent.values["Bootable"] = disk.Text("DeviceID") == "D2";
        Add(extent);
        Add(Link("QV_SATADiskDriveStorageExtent", "Antecedent", disk, "Dependent", extent));
    }
    const Topology topology = BuildTopology(host_);
    EXPECT_EQ(topology.looseDisks[0].bootable, false);
    EXPECT_EQ(topology.looseDisks[1].bootable, true);
    EXPECT_FALSE(topology.looseDisks[2].bootable.has_value());
}

TEST_F(TopologyTest, TakesFlagsFromTheFirstOfTwoExtentsWithOneIdentity) {
    for (const bool bootable : {true, false}) {
        auto extent = Instance("QV_SATAStorageExtent", "DeviceID", "D");
        extent.values["Bootable"] = bootable;
        Add(extent);
    }
    Add(Link("QV_SATADiskDriveStorageExtent", "Antecedent", AddDisk("D"), "Dependent",
             Instance("QV_SATAStorageExtent", "DeviceID", "D")));
    EXPECT_EQ(BuildTopology(host_).looseDisks[0].bootable, true);
}

TEST_F(TopologyTest, NamesAStatusByItsTextThenByItsCode) {
    auto text = Instance("QV_SATADiskDrive", "DeviceID", "A");
    text.values["StatusDescriptions"] = std::vector<std::string>{"Starting"};
    auto code = Instance("QV_SATADiskDrive", "DeviceID", "B");
    code.values["OperationalStatus"] = std::vector<std::int64_t>{3};
    Add(text);
    Add(code);
    AddDisk("C");
    const Topology topology = BuildTopology(host_);
    EXPECT_EQ(topology.looseDisks[0].status.word, "Starting");
    EXPECT_FALSE(topology.looseDisks[0].status.code.has_value());
    EXPECT_EQ(topology.looseDisks[1].status.word, "Degraded");
    EXPECT_EQ(topology.looseDisks[2].status.word, "no status");
}

}  // namespace
}  // namespace qv::test
