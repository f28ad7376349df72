#include "qvsata/report/Page.h"

#include <gmock/gmock.h>

#include "qvsata/report/IndexPage.h"

namespace qv::test {
namespace {

using report::Host;
using report::PageOf;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const report::Origin origin{"qvsata 1.2.3", "2026-11-22 10:03:12 UTC"};

view::OsDisk DiskWith(std::int64_t number, std::int64_t code, const std::string& word) {
    view::OsDisk disk;
    disk.number = number;
    disk.model = "Halden HD4000F05";
    disk.serialNumber = "HDF4Z1107Q2M";
    disk.size = 4'000'787'030'016;
    disk.bus = "IDE";
    disk.health = {code, word};
    disk.failureIsPredicted = false;
    return disk;
}

Host HostWith(const std::string& name, std::vector<view::OsDisk> disks) {
    Host host;
    host.name = name;
    host.recording = "site/" + name + ".json";
    host.disks.disks = std::move(disks);
    return host;
}

Host Detailed(Host host) {
    host.details.emplace();
    return host;
}

/// Returns hosts with eight disks each, of which one is degraded.
std::vector<Host> Fleet(std::size_t count) {
    std::vector<Host> hosts;
    for (std::size_t place = 0; place < count; ++place) {
        std::vector<view::OsDisk> disks(7, DiskWith(1, 2, "OK"));
        disks.push_back(DiskWith(7, 3, "Degraded"));
        hosts.push_back(HostWith("ws-" + std::to_string(place) + ".example.org", disks));
    }
    return hosts;
}

TEST(Page, LoadsNothingAndRunsNothing) {
    const std::string page = PageOf({Detailed(HostWith("a", {DiskWith(0, 2, "OK")}))}, origin);
    EXPECT_THAT(page, StartsWith("<!DOCTYPE html>\n<html lang=\"en\""));
    EXPECT_THAT(page,
                HasSubstr("<meta http-equiv=\"Content-Security-Policy\" content=\"default-src "
                          "&#39;none&#39;; style-src &#39;unsafe-inline&#39;\"/>"));
    EXPECT_THAT(page,
                AllOf(Not(HasSubstr("<script")), Not(HasSubstr("<link")), Not(HasSubstr("<img")),
                      Not(HasSubstr("url(")), Not(HasSubstr("@import")), Not(HasSubstr("https:"))));
}

TEST(Page, SaysWhenAndFromWhatItWasMade) {
    EXPECT_THAT(PageOf({Detailed(HostWith("a", {}))}, origin),
                HasSubstr("Made 2026-11-22 10:03:12 UTC by qvsata 1.2.3 from the recording "
                          "site/a.json, which does not say when it was made."));
}

TEST(Page, OfAMachineWithoutANameSaysSo) {
    Host host = Detailed(HostWith("", {}));
    host.recording.clear();
    EXPECT_THAT(PageOf({host}, origin), HasSubstr("<bdi>computer without a name</bdi>"));
}

TEST(Page, OfUnreadDisksDoesNotSayThatThereAreNone) {
    Host host = Detailed(HostWith("a", {}));
    host.disks.disksAreRead = false;
    host.unread.push_back({"root\\CIMv2", "Win32_DiskDrive", "WBEM_E_ACCESS_DENIED", "disks"});
    EXPECT_THAT(PageOf({host}, origin),
                AllOf(Not(HasSubstr("no disks")), Not(HasSubstr("has no disks")),
                      Not(HasSubstr("Every source")), HasSubstr("Disks not readable."),
                      HasSubstr("<li><b>Win32_DiskDrive</b> of root\\CIMv2: WBEM_E_ACCESS_DENIED: "
                                "disks</li>")));
}

TEST(Page, LinksEachDiskThatIsNotOkToItsFacts) {
    const std::string page = PageOf(
        {Detailed(HostWith("a", {DiskWith(0, 3, "Degraded"), DiskWith(1, 6, "Error")}))}, origin);
    const std::size_t first = page.find("<a href=\"#disk1\">#1 Halden HD4000F05</a>");
    const std::size_t second = page.find("<a href=\"#disk0\">#0 Halden HD4000F05</a>");
    EXPECT_NE(second, std::string::npos);
    EXPECT_LT(first, second);
    EXPECT_THAT(page, AllOf(HasSubstr("<h3 id=\"disk0\">"), HasSubstr("<h3 id=\"disk1\">")));
}

TEST(Page, DoesNotTakeADiskWithoutAPredictionForASoundOne) {
    view::OsDisk disk = DiskWith(0, 2, "OK");
    disk.hasPrediction = true;
    EXPECT_THAT(PageOf({Detailed(HostWith("a", {disk}))}, origin),
                HasSubstr("<dt>Failure predicted</dt><dd>no</dd>"));
    disk.hasPrediction = false;
    EXPECT_THAT(PageOf({Detailed(HostWith("a", {disk}))}, origin),
                HasSubstr("<dt>Failure predicted</dt><dd>no prediction names it</dd>"));
}

TEST(Page, ShowsTheEventsOfEachStep) {
    Host host = Detailed(HostWith("a", {}));
    view::DiskEvent event;
    event.eventId = "603";
    event.meaning = view::MeaningOf("603");
    event.model = "Halden";
    event.host = "a";
    host.details->steps = {{"0.json", "1.json", std::vector{event}},
                           {"1.json", "2.json", std::vector<view::DiskEvent>()},
                           {"2.json", "3.json", std::nullopt}};
    EXPECT_THAT(
        PageOf({host}, origin),
        AllOf(HasSubstr("from 4 recordings; it shows the last, site/a.json"),
              HasSubstr("0.json → 1.json"),
              HasSubstr("<span class=\"badge critical\">critical</span> <b>603</b> Disk Halden of "
                        "a: disk error."),
              HasSubstr("<p>no event</p>"), HasSubstr(">events not readable</p>")));
}

TEST(Page, OfFewHostsHasAnIndexAndAllDetails) {
    const std::string page = PageOf({Detailed(HostWith("good", {DiskWith(0, 2, "OK")})),
                                     Detailed(HostWith("bad", {DiskWith(0, 6, "Error")}))},
                                    origin);
    EXPECT_THAT(
        page,
        AllOf(HasSubstr("<bdi>2 hosts</bdi>"), HasSubstr("<a href=\"#failed\">Failed: 1"),
              HasSubstr("<a href=\"#h1-host\">bad</a>"), HasSubstr("<h2 id=\"h1-host\">bad</h2>"),
              HasSubstr("<h3 id=\"h2-disks\">Disks</h3>")));
    EXPECT_LT(page.find("href=\"#h1-host\""), page.find("href=\"#h2-host\""));
}

TEST(Page, OfManyHostsHasALineForEachWhichOpens) {
    std::vector<Host> hosts = Fleet(report::mostDetailed + 1);
    hosts.back().disks.disks.front() = DiskWith(3, 6, "Error");
    const std::string page = PageOf(hosts, origin);
    EXPECT_THAT(page, AllOf(HasSubstr("<details>\n<summary class=\"line\">"),
                            HasSubstr("<h3>ws-10.example.org</h3>"), Not(HasSubstr("<svg"))));
    EXPECT_LT(page.find("ws-10.example.org"), page.find("ws-0.example.org"));
}

TEST(Page, KeepsARecordingThatCannotBeRead) {
    Host broken;
    broken.recording = "site/x.json";
    broken.failure = "site/x.json: no JSON";
    EXPECT_THAT(PageOf({Detailed(HostWith("a", {})), broken}, origin),
                AllOf(HasSubstr("Unknown or not readable: 1"), HasSubstr("<b>site/x.json</b>"),
                      HasSubstr("<span>site/x.json: no JSON</span>")));
}

TEST(Page, OfTheOnlyRecordingThatCannotBeReadIsNamedAfterIt) {
    Host broken;
    broken.recording = "site/x.json";
    broken.failure = "no JSON";
    EXPECT_EQ(report::HeadlineOf({broken}), "site/x.json: not readable");
    EXPECT_THAT(PageOf({broken}, origin), HasSubstr("<title>Disks of site/x.json</title>"));
}

TEST(Page, OfFiveHundredHostsHasLessThanThreeMegabytes) {
    EXPECT_LT(PageOf(Fleet(500), origin).size(), 3'000'000U);
}

TEST(Page, IsBoundedByNoTextOfADevice) {
    std::vector<Host> hosts = Fleet(20);
    for (Host& host : hosts) {
        host.name = std::string(64 * 1024, '<');
        host.disks.disks.resize(1);
        host.disks.disks.front().model = std::string(64 * 1024, '\x1B');
    }
    EXPECT_LT(PageOf(hosts, origin).size(), 120'000U);
}

TEST(Page, CountsTheDisksThatItLeavesOut) {
    const std::vector<view::OsDisk> disks(1000, DiskWith(0, 2, "OK"));
    EXPECT_THAT(PageOf({Detailed(HostWith("a", disks))}, origin),
                HasSubstr("And 744 more disks, which qvsata disks lists."));
}

TEST(Page, OfManyDisksHasTheFactsOfTheWorst) {
    std::vector<view::OsDisk> disks(1000, DiskWith(0, 2, "OK"));
    disks.back() = DiskWith(999, 6, "Error");
    EXPECT_THAT(PageOf({Detailed(HostWith("a", disks))}, origin),
                AllOf(HasSubstr("<a href=\"#disk999\">#999 Halden HD4000F05</a>"),
                      HasSubstr("<h3 id=\"disk999\">"),
                      HasSubstr("And 744 more disks, which qvsata disks lists.")));
}

TEST(Page, BeginsWithTheWorst) {
    EXPECT_EQ(report::HeadlineOf({HostWith("a", {DiskWith(0, 2, "OK")}),
                                  HostWith("b", {DiskWith(0, 6, "Error")})}),
              "2 hosts: the worst is b: 1 disk failed");
    EXPECT_EQ(report::HeadlineOf({Detailed(HostWith("a", {DiskWith(0, 2, "OK")}))}), "a: disk OK");
}

}  // namespace
}  // namespace qv::test
