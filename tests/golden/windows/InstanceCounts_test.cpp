// The number of instances of each class on a host, counted by hand in its recording.
#include <algorithm>
#include <map>

#include "SourceTree.h"
#include "tests/golden/windows/WholeHost.h"
#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {
namespace {

using Counts = std::map<std::string, std::size_t>;

/// The counts of a recording, made by hand.
struct Recording {
    const char* folder;  ///< of the source tree
    const char* host;
    std::size_t disks;                  ///< of interface type IDE
    std::size_t controllers;            ///< controller rows with a revision
    std::size_t channels;               ///< controller rows that are channels
    std::size_t families;               ///< driver families among the drivers of controller rows
    std::size_t attachedChannels;       ///< channels with a link to a controller
    std::size_t attachedDisks;          ///< IDE disks with a link to a controller row
    std::size_t disksOnChannels;        ///< IDE disks whose last link is to a channel
    std::size_t familiesOfControllers;  ///< families whose first row is a controller
};

constexpr Recording shipped[] = {
    {"hosts", "ahci-desktop", 3, 1, 6, 2, 6, 3, 3, 1},
    {"hosts", "every-driver-family", 3, 4, 2, 3, 2, 3, 1, 2},
    {"hosts", "legacy-ide", 2, 2, 4, 2, 4, 2, 2, 1},
    {"hosts", "mixed-buses-failing", 3, 2, 2, 2, 2, 3, 0, 1},
    {"hosts", "twelve-disk-server", 12, 2, 0, 0, 0, 12, 0, 0},
    {"hosts", "two-ahci-controllers", 4, 2, 5, 2, 5, 3, 3, 1},
};

constexpr Recording ofRealMachines[] = {
    {"tests/hosts", "failing-disk", 4, 0, 0, 0, 0, 0, 0, 0},
    {"tests/hosts", "sixteen-disks", 16, 0, 0, 0, 0, 0, 0, 0},
    {"tests/hosts", "virtualbox-win10", 1, 0, 0, 0, 0, 0, 0, 0},
    {"tests/hosts", "vmware-server-2016", 0, 2, 2, 1, 2, 0, 0, 0},
    {"tests/hosts", "win10-ahci-direct", 1, 1, 0, 0, 0, 1, 0, 0},
    {"tests/hosts", "win11-sata-nvme", 2, 0, 0, 0, 0, 0, 0, 0},
    {"tests/hosts", "win7-ahci-laptop", 1, 2, 4, 2, 4, 1, 1, 1},
    {"tests/hosts", "xp-legacy-ide", 1, 2, 4, 2, 4, 1, 1, 1},
};

std::filesystem::path FileOf(const Recording& recording) {
    return std::filesystem::path(QV_SOURCE_DIR) / recording.folder /
           (recording.host + std::string(".json"));
}

std::size_t CountOf(const Recording& host, Quantity quantity) {
    switch (quantity) {
        case Quantity::disks:
            return host.disks;
        case Quantity::controllers:
            return host.controllers;
        case Quantity::channels:
            return host.channels;
        case Quantity::families:
            return host.families;
        case Quantity::attachedChannels:
            return host.attachedChannels;
        case Quantity::attachedDisks:
            return host.attachedDisks;
        case Quantity::disksOnChannels:
            return host.disksOnChannels;
        case Quantity::familiesOfControllers:
            return host.familiesOfControllers;
        default:
            return 1;
    }
}

Counts CountsOf(const Recording& host) {
    Counts counts;
    for (const ExpectedInstanceClass& one : ExpectedInstanceClasses()) {
        counts[one.name] = CountOf(host, one.quantity);
    }
    for (const ExpectedAssociation& one : ExpectedAssociations()) {
        counts[one.name] = CountOf(host, one.quantity);
    }
    return counts;
}

Counts CountsOf(const WholeHost& host) {
    Counts counts;
    for (const auto& [className, instances] : host.classes) {
        counts[className] = instances.size();
    }
    return counts;
}

class InstanceCountsTest : public testing::TestWithParam<Recording> {};

TEST_P(InstanceCountsTest, AreThoseOfTheRecording) {
    EXPECT_EQ(CountsOf(WholeHost::From(FileOf(GetParam()))), CountsOf(GetParam()));
}

std::string NameOf(const testing::TestParamInfo<Recording>& recording) {
    std::string name = recording.param.host;
    std::ranges::replace(name, '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(ShippedHosts, InstanceCountsTest, testing::ValuesIn(shipped), NameOf);
INSTANTIATE_TEST_SUITE_P(RealMachines, InstanceCountsTest, testing::ValuesIn(ofRealMachines),
                         NameOf);

}  // namespace
}  // namespace qv::test
