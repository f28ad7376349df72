#include "qvsata/view/TopologyText.h"

#include <gmock/gmock.h>

namespace qv::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using view::Disk;
using view::Span;
using view::Style;
using view::Topology;

const view::Health ok{2, "OK"};

Disk MakeDisk(const std::string& model, const view::Health& status) {
    Disk disk;
    disk.model = model;
    disk.status = status;
    disk.serialNumber = "S1";
    disk.size = 500'107'862'016;
    return disk;
}

std::string Text(const Topology& topology) {
    return view::PlainText(view::TopologyAsText(topology));
}

TEST(TopologyText, SaysThatThereIsNothing) {
    EXPECT_EQ(Text({}),
              "computer without a name\n"
              "└─ no IDE or SATA controllers\n"
              "no disks\n");
}

TEST(TopologyText, AlignsDisksOfAllLevels) {
    Topology topology;
    topology.computer = "host";
    Disk primary = MakeDisk("Long model", ok);
    primary.primaryPartition = true;
    topology.controllers.push_back({"AHCI",
                                    "C",
                                    ok,
                                    view::Software{"msahci", ""},
                                    view::Software{"SATA firmware", "05"},
                                    {},
                                    {{"4&0", "CH", ok, {primary}}, {"4&1", "CH", ok, {}}},
                                    {MakeDisk("Short", {6, "Error"})}});
    topology.collection = ok;
    EXPECT_EQ(Text(topology),
              "host\n"
              "└─ AHCI  OK\n"
              "   │  driver msahci · SATA firmware 05\n"
              "   ├─ channel 4&0  OK\n"
              "   │  └─ OK       Long model  500.1 GB  465.8 GiB  primary  S/N S1\n"
              "   ├─ channel 4&1  OK  empty\n"
              "   └──── ! Error  Short       500.1 GB  465.8 GiB           S/N S1\n"
              "2 disks: 1 OK, 1 Error; consolidated status OK\n");
}

TEST(TopologyText, GroupsDisksWithoutAttachment) {
    Topology topology;
    topology.looseDisks = {MakeDisk("M", ok)};
    EXPECT_THAT(Text(topology), HasSubstr("└─ disks without a known attachment\n   └─ OK  M  "));
}

TEST(TopologyText, PutsDashesForWhatADiskDoesNotSay) {
    Topology topology;
    Disk disk;
    disk.status = ok;
    topology.looseDisks = {disk};
    EXPECT_THAT(Text(topology), HasSubstr("└─ OK  -  -  -  S/N -\n"));
}

TEST(TopologyText, RoundsSizesToTenths) {
    Topology topology;
    topology.looseDisks = {MakeDisk("M", ok)};
    topology.looseDisks[0].size = 999'960'000;
    EXPECT_THAT(Text(topology), HasSubstr("1.0 GB  0.9 GiB"));
}

TEST(TopologyText, StylesAStatusByWhatItMeans) {
    Topology topology;
    topology.looseDisks = {MakeDisk("A", ok), MakeDisk("B", {6, "Error"}),
                           MakeDisk("C", {5, "Pred Fail"}),
                           MakeDisk("D", {std::nullopt, "Starting"})};
    const view::StyledText text = view::TopologyAsText(topology);
    EXPECT_THAT(text, Contains(Span{"OK", Style::good}));
    EXPECT_THAT(text, Contains(Span{"! Error", Style::bad}));
    EXPECT_THAT(text, Contains(Span{"! Pred Fail", Style::caution}));
    EXPECT_THAT(text, Contains(Span{"! Starting", Style::caution}));
}

}  // namespace
}  // namespace qv::test
