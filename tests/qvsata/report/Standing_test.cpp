#include "qvsata/report/Standing.h"

#include <gmock/gmock.h>

namespace qv::test {
namespace {

using report::Host;
using report::StandingOf;
using view::Severity;

view::OsDisk DiskWith(std::int64_t code, const std::string& word) {
    view::OsDisk disk;
    disk.health = {code, word};
    disk.failureIsPredicted = false;
    return disk;
}

Host HostWith(std::vector<view::OsDisk> disks) {
    Host host;
    host.disks.disks = std::move(disks);
    return host;
}

const view::OsDisk fine = DiskWith(2, "OK");
const view::OsDisk degraded = DiskWith(3, "Degraded");
const view::OsDisk broken = DiskWith(6, "Error");

TEST(Standing, IsThatOfTheWorstDisk) {
    const report::Standing standing = StandingOf(HostWith({fine, broken, degraded, fine}));
    EXPECT_EQ(standing.severity, Severity::failed);
    EXPECT_EQ(standing.verdict, "1 disk failed");
    EXPECT_EQ(standing.summary, "4 disks: 2 OK, 1 Degraded, 1 Error");
}

TEST(Standing, IsOkOnlyIfAllDisksAre) {
    EXPECT_EQ(StandingOf(HostWith({fine, fine})).verdict, "all disks OK");
    EXPECT_EQ(StandingOf(HostWith({fine})).verdict, "disk OK");
    EXPECT_EQ(StandingOf(HostWith({})).verdict, "no disks");
    EXPECT_EQ(StandingOf(HostWith({fine, DiskWith(0, "")})).severity, Severity::unknown);
}

TEST(Standing, OfUnreadDisksIsNotReadable) {
    Host host = HostWith({});
    host.disks.disksAreRead = false;
    EXPECT_EQ(StandingOf(host).severity, Severity::unknown);
    EXPECT_EQ(StandingOf(host).verdict, "disks not readable");
    EXPECT_EQ(StandingOf(host).summary, "disks not readable");
}

TEST(Standing, WithoutPredictionsIsNotOk) {
    Host host = HostWith({fine});
    host.disks.predictionsAreRead = false;
    host.disks.disks.front().failureIsPredicted.reset();
    EXPECT_EQ(StandingOf(host).severity, Severity::unknown);
    EXPECT_EQ(StandingOf(host).verdict, "failure predictions not readable");
    EXPECT_EQ(StandingOf(host).summary, "1 disk: 1 OK; failure predictions not readable");
}

TEST(Standing, WithoutThePredictionOfADiskIsNotOk) {
    Host host = HostWith({fine, fine});
    host.disks.disks.front().failureIsPredicted.reset();
    EXPECT_EQ(StandingOf(host).verdict, "failure prediction unknown");
    EXPECT_EQ(StandingOf(host).summary, "2 disks: 2 OK; failure prediction unknown for 1 disk");
}

TEST(Standing, OfAFailedDiskSaysSoWithoutPredictions) {
    Host host = HostWith({broken});
    host.disks.predictionsAreRead = false;
    EXPECT_EQ(StandingOf(host).verdict, "1 disk failed");
}

TEST(Standing, KnowsAPredictionThatBelongsToNoDisk) {
    Host host = HostWith({fine});
    host.disks.failingOthers = {"SCSI\\DISK&1"};
    EXPECT_EQ(StandingOf(host).severity, Severity::failurePredicted);
    EXPECT_EQ(StandingOf(host).verdict, "failure predicted for 1 unknown device");
}

TEST(Standing, CountsAPredictionThatTheStatusDoesNotTell) {
    Host host = HostWith({fine});
    host.disks.disks.front().failureIsPredicted = true;
    EXPECT_EQ(StandingOf(host).verdict, "failure predicted for 1 disk");
}

TEST(Standing, OfARecordingThatCannotBeReadIsTheReason) {
    Host host;
    host.failure = "x.json: no JSON";
    EXPECT_EQ(StandingOf(host).severity, Severity::unknown);
    EXPECT_EQ(StandingOf(host).verdict, "not readable");
    EXPECT_EQ(StandingOf(host).summary, "x.json: no JSON");
}

TEST(Standing, OrdersTheWorstFirstThenByWhatIsUnreadThenByName) {
    Host failedHost = HostWith({broken});
    failedHost.name = "z";
    Host unreadable;
    unreadable.failure = "?";
    Host blind = HostWith({});
    blind.disks.disksAreRead = false;
    Host fineButUnread = HostWith({fine});
    fineButUnread.name = "y";
    fineButUnread.unread.push_back({"root\\CIMv2", "Win32_PnPEntity", "", ""});
    Host a = HostWith({fine});
    a.name = "a";
    Host b = HostWith({fine});
    b.name = "b";
    const std::vector<Host> expected{failedHost, unreadable, blind, fineButUnread, a, b};
    std::vector<Host> hosts{b, fineButUnread, a, blind, unreadable, failedHost};
    std::ranges::sort(hosts, report::IsBefore);
    EXPECT_TRUE(std::ranges::equal(hosts, expected, {}, report::TitleOf, report::TitleOf));
    EXPECT_EQ(hosts[1].failure, "?");
}

}  // namespace
}  // namespace qv::test
