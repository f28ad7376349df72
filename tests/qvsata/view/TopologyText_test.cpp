#include "qvsata/view/TopologyText.h"

#include <gmock/gmock.h>

#include "tests/qvsata/view/OsDisks.h"

namespace qv::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::EndsWith;
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
    Disk first = MakeDisk("Long model", ok);
    first.number = 1;
    Disk tenth = MakeDisk("Short", {6, "Error"});
    tenth.number = 10;
    topology.controllers.push_back({"AHCI",
                                    "C",
                                    ok,
                                    view::Software{"msahci", ""},
                                    view::Software{"SATA firmware", "05"},
                                    {},
                                    {{"4&0", "CH", ok, {first}}, {"4&1", "CH", ok, {}}},
                                    {tenth}});
    topology.collection = ok;
    EXPECT_EQ(Text(topology),
              "host\n"
              "└─ AHCI  OK\n"
              "   │  driver msahci · SATA firmware 05\n"
              "   ├─ channel 4&0  OK\n"
              "   │  └─  #1  OK       Long model  500.1 GB  465.8 GiB  S/N S1\n"
              "   ├─ channel 4&1  OK  no disk\n"
              "   └──── #10  ! Error  Short       500.1 GB  465.8 GiB  S/N S1\n"
              "2 disks: 1 OK, 1 Error; published consolidated status: OK\n");
}

TEST(TopologyText, BreaksLinesBetweenItemsOnANarrowTerminal) {
    Topology topology;
    topology.computer = "host";
    Disk disk = MakeDisk("Some long model of a disk", ok);
    disk.number = 1;
    topology.controllers.push_back({"AHCI",
                                    "C",
                                    ok,
                                    view::Software{"msahci", ""},
                                    view::Software{"SATA firmware", "05"},
                                    view::Software{"SATA BIOS", "05"},
                                    {{"4&0", "CH", ok, {disk}}},
                                    {}});
    EXPECT_EQ(view::PlainText(view::TopologyAsText(topology, 44)),
              "host\n"
              "└─ AHCI  OK\n"
              "   │  driver msahci · SATA firmware 05\n"
              "   │  SATA BIOS 05\n"
              "   └─ channel 4&0  OK\n"
              "      └─ #1  OK  Some long model of a disk\n"
              "            500.1 GB  465.8 GiB  S/N S1\n"
              "1 disk: 1 OK\n");
}

Span SummaryOf(std::vector<Disk> disks) {
    Topology topology;
    topology.looseDisks = std::move(disks);
    const view::StyledText text = view::TopologyAsText(topology);
    return text.at(text.size() - 2);
}

TEST(TopologyText, SumsUpByTheWorstOfTheDisks) {
    EXPECT_EQ(SummaryOf({MakeDisk("A", ok), MakeDisk("B", {5, "Pred Fail"}), MakeDisk("C", ok)}),
              (Span{"3 disks: 2 OK, 1 Pred Fail", Style::caution}));
    EXPECT_EQ(SummaryOf({MakeDisk("A", {6, "Error"}), MakeDisk("B", {3, "Degraded"})}),
              (Span{"2 disks: 1 Degraded, 1 Error", Style::bad}));
    EXPECT_EQ(SummaryOf({MakeDisk("A", ok)}), (Span{"1 disk: 1 OK", Style::good}));
}

TEST(TopologyText, SumsUpAPredictedFailureThatIsNotPublished) {
    Topology topology;
    topology.looseDisks = {MakeDisk("A", ok)};
    topology.looseDisks[0].failureIsPredicted = true;
    topology.collection = ok;
    EXPECT_THAT(Text(topology), HasSubstr("\n1 disk: 1 failure predicted (reported OK); published "
                                          "consolidated status: OK\n"));
}

TEST(TopologyText, SumsUpPredictionsThatNoLineShows) {
    Topology topology;
    topology.looseDisks = {MakeDisk("A", ok)};
    topology.failingOthers = {"D1", "D2"};
    topology.unknownPredictions = 1;
    EXPECT_THAT(Text(topology), EndsWith("\n1 disk: 1 OK; failure predicted for 2 unknown devices; "
                                         "failure prediction unknown for 1 disk\n"));
}

TEST(TopologyText, SaysThatAControllerLacksChannelsIfOnlyDisksAreNotReadable) {
    Topology topology;
    topology.controllers = {{"AHCI", "C", ok, {}, {}, {}, {}, {}}};
    topology.sight.disks = false;
    EXPECT_THAT(Text(topology), HasSubstr("AHCI  OK  no channels, disks not readable\n"));
    topology.sight.attachments = false;
    EXPECT_THAT(Text(topology), HasSubstr("AHCI  OK  channels, disks not readable\n"));
}

TEST(TopologyText, SaysWhereOnlyUnpublishedDisksAreAttached) {
    Topology topology;
    topology.controllers = {
        {"A", "A", ok, {}, {}, {}, {{"4&0", "CH0", ok, {}, true}, {"4&1", "CH1", ok, {}}}, {}},
        {"B", "B", ok, {}, {}, {}, {}, {}, true}};
    EXPECT_THAT(Text(topology),
                AllOf(HasSubstr("4&0  OK  no published disk\n"), HasSubstr("4&1  OK  no disk\n"),
                      HasSubstr("B  OK  no channels, no published disks\n")));
}

TEST(TopologyText, CountsTheDisksThatAreNotPublished) {
    Topology topology;
    topology.looseDisks = {MakeDisk("A", ok)};
    topology.unpublished = {NumberedDisk(1, {5, "Pred Fail"}), NumberedDisk(2, ok)};
    EXPECT_THAT(Text(topology), EndsWith("\n1 disk: 1 OK; 2 not published: 1 OK, 1 Pred Fail\n"));
    topology.looseDisks.clear();
    EXPECT_THAT(Text(topology),
                EndsWith("\nno published disks; 2 not published: 1 OK, 1 Pred Fail\n"));
}

TEST(TopologyText, SaysThatFailurePredictionsCouldNotBeRead) {
    Topology topology;
    topology.looseDisks = {MakeDisk("A", ok)};
    topology.sight.predictions = false;
    EXPECT_THAT(Text(topology), EndsWith("\n1 disk: 1 OK; failure predictions not readable\n"));
}

TEST(TopologyText, KeepsQuietAboutAConsolidatedStatusThatSaysTheSame) {
    Topology topology;
    topology.looseDisks = {MakeDisk("A", {5, "Pred Fail"})};
    topology.collection = {5, "Pred Fail"};
    EXPECT_THAT(Text(topology), EndsWith("\n1 disk: 1 Pred Fail\n"));
}

TEST(TopologyText, ShowsControlCharactersOfDevicesAsCodes) {
    Topology topology;
    topology.computer = "host\x1B[2J";
    topology.looseDisks = {MakeDisk("M\nOK", {2, "O\u202EK"})};
    topology.looseDisks[0].serialNumber = "\x07";
    EXPECT_THAT(Text(topology), AllOf(HasSubstr(R"(host\x1b[2J)"), HasSubstr(R"(M\x0aOK)"),
                                      HasSubstr(R"(O\u202eK)"), HasSubstr(R"(S/N \x07)")));
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
