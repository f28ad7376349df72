// How many instances of each class a host has, counted by hand in its recording.
#include <algorithm>
#include <map>

#include "SourceTree.h"
#include "tests/windows/golden/WholeHost.h"

namespace qv::test {
namespace {

using Counts = std::map<std::string, std::size_t>;

/// What a recording holds, counted by hand.
struct Recording {
    const char* host;
    std::size_t disks;                  ///< of interface type IDE
    std::size_t controllers;            ///< controller rows with a revision
    std::size_t channels;               ///< controller rows that are channels
    std::size_t families;               ///< driver families among the drivers of controller rows
    std::size_t attachedChannels;       ///< channels with a link to a controller
    std::size_t attachedDisks;          ///< IDE disks with a link to a controller row
    std::size_t disksOnChannels;        ///< those whose last link is to a channel
    std::size_t familiesOfControllers;  ///< families whose first row is a controller
};

constexpr Recording shipped[] = {
    {"ahci-desktop", 3, 1, 6, 2, 6, 3, 3, 1},
    {"every-driver-family", 3, 4, 2, 3, 2, 3, 1, 2},
    {"legacy-ide", 2, 2, 4, 2, 4, 2, 2, 1},
    {"mixed-buses-failing", 3, 2, 2, 2, 2, 3, 0, 1},
    {"twelve-disk-server", 12, 2, 0, 0, 0, 12, 0, 0},
    {"two-ahci-controllers", 4, 2, 5, 2, 5, 3, 3, 1},
};

constexpr Recording ofRealMachines[] = {
    {"failing-disk", 4, 0, 0, 0, 0, 0, 0, 0},      {"sixteen-disks", 16, 0, 0, 0, 0, 0, 0, 0},
    {"virtualbox-win10", 1, 0, 0, 0, 0, 0, 0, 0},  {"vmware-server-2016", 0, 2, 2, 1, 2, 0, 0, 0},
    {"win10-ahci-direct", 1, 1, 0, 0, 0, 1, 0, 0}, {"win11-sata-nvme", 2, 0, 0, 0, 0, 0, 0, 0},
    {"win7-ahci-laptop", 1, 2, 4, 2, 4, 1, 1, 1},  {"xp-legacy-ide", 1, 2, 4, 2, 4, 1, 1, 1},
};

Counts CountsOf(const Recording& host) {
    return {
        {"QV_SATAPortController", host.controllers},
        {"QV_SATADiskDrive", host.disks},
        {"QV_SATAStorageExtent", host.disks},
        {"QV_SATADiskDriveFW", host.disks},
        {"QV_SATAPortControllerPhysicalPackage", host.controllers},
        {"QV_SATADiskPhysicalPackage", host.disks},
        {"QV_SATAStorageCollection", 1},
        {"QV_SATADiskLocation", host.disks},
        {"QV_SATAControllerLocation", host.controllers},
        {"QV_SATAPortControllerProduct", host.controllers},
        {"QV_SATALogicalPort", host.channels},
        {"QV_ISATAProtocolEndpoint", host.channels},
        {"QV_TSATAProtocolEndpoint", host.disks},
        {"QV_SATAPortControllerDriver", host.families},
        {"QV_SATAPortControllerFW", host.families},
        {"QV_SATAPortControllerBIOS", host.families},
        {"QV_WinComputerSystem", 1},
        {"QV_WinComputerSystemSATAPortController", host.controllers},
        {"QV_SATAPortControllerSATALogicalPort", host.attachedChannels},
        {"QV_SATAPortControllerPhysicalPackageSATAControllerLocation", host.controllers},
        {"QV_SATAPortControllerProductSATAPortControllerPhysicalPackage", host.controllers},
        {"QV_SATAPortControllerProductSATAPortController", host.controllers},
        {"QV_SATAPortControllerPhysicalPackageSATAPortController", host.controllers},
        {"QV_WinComputerSystemSATAStorageExtent", host.disks},
        {"QV_WinComputerSystemSATADiskDrive", host.disks},
        {"QV_WinComputerSystemSATALogicalPort", host.channels},
        {"QV_SATADiskDriveStorageExtent", host.disks},
        {"QV_SATADiskPhysicalPackageSATADiskDrive", host.disks},
        {"QV_SATADiskPhysicalPackageSATADiskLocation", host.disks},
        {"QV_SATADiskDriveDiskDriveFW", host.disks},
        {"QV_TSATAProtocolEndpointSATADiskDrive", host.attachedDisks},
        {"QV_SATALogicalPortISATAProtocolEndpoint", host.channels},
        {"QV_SATAInitiatorTargetLogicalUnitPath", host.disksOnChannels},
        {"QV_SATAStorageCollectionSATADiskDrive", host.disks},
        {"QV_SATAHostedCollection", 1},
        {"QV_SATAPortControllerFWSATAPortController", host.familiesOfControllers},
        {"QV_SATAPortControllerDriverSATAPortController", host.familiesOfControllers},
        {"QV_SATAPortControllerBIOSSATAPortController", host.familiesOfControllers},
    };
}

class InstanceCounts : public testing::TestWithParam<Recording> {
protected:
    void Check(const std::filesystem::path& folder) {
        const WholeHost& host = WholeHost::From(folder / (GetParam().host + std::string(".json")));
        Counts counts;
        for (const auto& [className, instances] : host.classes) {
            counts[className] = instances.size();
        }
        EXPECT_EQ(counts, CountsOf(GetParam()));
    }
};

std::string NameOf(const testing::TestParamInfo<Recording>& recording) {
    std::string name = recording.param.host;
    std::ranges::replace(name, '-', '_');
    return name;
}

class ShippedHosts : public InstanceCounts {};
TEST_P(ShippedHosts, AreThoseOfTheRecording) {
    Check(std::filesystem::path(QV_SOURCE_DIR) / "hosts");
}
INSTANTIATE_TEST_SUITE_P(Each, ShippedHosts, testing::ValuesIn(shipped), NameOf);

class RealMachines : public InstanceCounts {};
TEST_P(RealMachines, AreThoseOfTheRecording) {
    Check(std::filesystem::path(QV_SOURCE_DIR) / "tests/hosts");
}
INSTANTIATE_TEST_SUITE_P(Each, RealMachines, testing::ValuesIn(ofRealMachines), NameOf);

}  // namespace
}  // namespace qv::test
