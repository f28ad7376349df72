#include "qvsata/view/check/DiskCheck.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "tests/qvsata/view/OsDisks.h"

namespace qv::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Le;
using testing::Not;
using testing::StartsWith;
using view::CheckSubject;
using view::Health;
using view::OsDisk;

const Health fineHealth{2, "OK"};
const Health degradedHealth{3, "Degraded"};
const Health predictedHealth{5, "Pred Fail"};
const Health errorHealth{6, "Error"};

OsDisk CheckedDisk(std::int64_t number, Health health,
                   std::optional<bool> failureIsPredicted = false) {
    OsDisk disk = NumberedDisk(number, std::move(health));
    disk.model = "M";
    disk.deviceId = "ID" + std::to_string(number);
    disk.failureIsPredicted = failureIsPredicted;
    return disk;
}

OsDisk OnAnotherBus(OsDisk disk) {
    disk.whyUnpublished = "bus is SCSI";
    return disk;
}

OsDisk Labelled(OsDisk disk) {
    disk.serialNumber = "S1";
    return disk;
}

/// Returns a host of which everything was read, and all disks are published.
CheckSubject CheckedHost(std::vector<OsDisk> disks, Health consolidated = fineHealth) {
    CheckSubject host{{std::move(disks)}};
    host.published = host.all.disks.size();
    host.consolidated = std::move(consolidated);
    return host;
}

CheckSubject Expecting(std::size_t expected, CheckSubject host) {
    host.expected = expected;
    return host;
}

CheckSubject WithoutPredictions(CheckSubject host) {
    host.all.predictionsAreRead = false;
    host.unread.push_back({"Predictions", "root\\wmi Predictions: DENIED"});
    return host;
}

CheckSubject WithoutMedia(CheckSubject host) {
    host.unread.push_back({"Media", "root\\CIMv2 Media: DENIED"});
    return host;
}

CheckSubject WithoutDisks(CheckSubject host = {}) {
    host.all.disksAreRead = false;
    host.unread.push_back({"Drives", "root\\CIMv2 Drives: DENIED"});
    return host;
}

CheckSubject WithFailingDevice(CheckSubject host) {
    host.all.failingOthers = {"RAID|1"};
    return host;
}

struct CheckCase {
    const char* name;
    CheckSubject subject;
    int exitCode;
    const char* text;
};

class DiskCheckTest : public testing::TestWithParam<CheckCase> {};

TEST_P(DiskCheckTest, HasALineAndAnExitCode) {
    const view::CheckResult result = view::CheckDisks(GetParam().subject);
    EXPECT_EQ(result.exitCode, GetParam().exitCode);
    EXPECT_EQ(result.text, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Health, DiskCheckTest,
    testing::Values(
        CheckCase{"Fine", CheckedHost({CheckedDisk(0, fineHealth), CheckedDisk(1, fineHealth)}), 0,
                  "SATA OK - 2 disks, 2 published | disks=2;;;0 published=2;;;0 ok=2;;;0;2 "
                  "unknown=0;;;0;2 degraded=0;0;;0;2 predicted=0;;0;0;2 failed=0;;0;0;2 "
                  "unread=0;;;0\n"},
        CheckCase{"NoDisks", CheckedHost({}), 0,
                  "SATA OK - 0 disks, 0 published | disks=0;;;0 published=0;;;0 ok=0;;;0;0 "
                  "unknown=0;;;0;0 degraded=0;0;;0;0 predicted=0;;0;0;0 failed=0;;0;0;0 "
                  "unread=0;;;0\n"},
        CheckCase{"Degraded",
                  CheckedHost({CheckedDisk(0, fineHealth), CheckedDisk(1, degradedHealth)},
                              degradedHealth),
                  1,
                  "SATA WARNING - disk #1 M: Degraded; 2 disks, 2 published | disks=2;;;0 "
                  "published=2;;;0 ok=1;;;0;2 unknown=0;;;0;2 degraded=1;0;;0;2 predicted=0;;0;0;2 "
                  "failed=0;;0;0;2 unread=0;;;0\n"
                  "disk #1 M: Degraded\n"},
        CheckCase{"PredictedByTheStatus", CheckedHost({Labelled(CheckedDisk(0, predictedHealth))}),
                  2,
                  "SATA CRITICAL - disk #0 M: Pred Fail; 1 disk, 1 published | disks=1;;;0 "
                  "published=1;;;0 ok=0;;;0;1 unknown=0;;;0;1 degraded=0;0;;0;1 predicted=1;;0;0;1 "
                  "failed=0;;0;0;1 unread=0;;;0\n"
                  "disk #0 M (S/N S1): Pred Fail\n"},
        CheckCase{
            "PredictedBesideAStatusOfOk", CheckedHost({CheckedDisk(0, fineHealth, true)}), 2,
            "SATA CRITICAL - disk #0 M: failure predicted (reported OK); 1 disk, 1 published | "
            "disks=1;;;0 published=1;;;0 ok=0;;;0;1 unknown=0;;;0;1 degraded=0;0;;0;1 "
            "predicted=1;;0;0;1 failed=0;;0;0;1 unread=0;;;0\n"
            "disk #0 M: failure predicted (reported OK)\n"},
        CheckCase{"PredictedForAnUnknownDevice",
                  WithFailingDevice(CheckedHost({CheckedDisk(0, fineHealth)})), 2,
                  "SATA CRITICAL - unknown device RAID/1: failure predicted; 1 disk, 1 published | "
                  "disks=1;;;0 published=1;;;0 ok=1;;;0;1 unknown=0;;;0;1 degraded=0;0;;0;1 "
                  "predicted=0;;0;0;1 failed=0;;0;0;1 unread=0;;;0\n"
                  "unknown device RAID/1: failure predicted\n"},
        CheckCase{"Failed", CheckedHost({CheckedDisk(0, errorHealth)}, errorHealth), 2,
                  "SATA CRITICAL - disk #0 M: Error; 1 disk, 1 published | disks=1;;;0 "
                  "published=1;;;0 ok=0;;;0;1 unknown=0;;;0;1 degraded=0;0;;0;1 predicted=0;;0;0;1 "
                  "failed=1;;0;0;1 unread=0;;;0\n"
                  "disk #0 M: Error\n"},
        CheckCase{"FailedAndNotPublished",
                  CheckedHost({OnAnotherBus(Labelled(CheckedDisk(1, errorHealth)))}), 2,
                  "SATA CRITICAL - disk #1 M: Error; 1 disk, 1 published | disks=1;;;0 "
                  "published=1;;;0 ok=0;;;0;1 unknown=0;;;0;1 degraded=0;0;;0;1 predicted=0;;0;0;1 "
                  "failed=1;;0;0;1 unread=0;;;0\n"
                  "disk #1 M (S/N S1), not published (bus is SCSI): Error\n"},
        CheckCase{"WithoutAStatus", CheckedHost({CheckedDisk(0, {std::nullopt, "no status"})}), 3,
                  "SATA UNKNOWN - disk #0 M: no status; 1 disk, 1 published | disks=1;;;0 "
                  "published=1;;;0 ok=0;;;0;1 unknown=1;;;0;1 degraded=0;0;;0;1 predicted=0;;0;0;1 "
                  "failed=0;;0;0;1 unread=0;;;0\n"
                  "disk #0 M: no status\n"},
        CheckCase{
            "DegradedWithoutAPrediction",
            CheckedHost({CheckedDisk(0, degradedHealth, std::nullopt)}), 3,
            "SATA UNKNOWN - disk #0 M: Degraded, unknown whether a failure is predicted; 1 disk, "
            "1 published | disks=1;;;0 published=1;;;0 ok=0;;;0;1 unknown=1;;;0;1 "
            "degraded=0;0;;0;1 predicted=0;;0;0;1 failed=0;;0;0;1 unread=0;;;0\n"
            "disk #0 M: Degraded, unknown whether a failure is predicted\n"},
        CheckCase{"PublishedStatusThatIsWorse",
                  CheckedHost({CheckedDisk(0, fineHealth)}, degradedHealth), 1,
                  "SATA WARNING - published consolidated status: Degraded; 1 disk, 1 published | "
                  "disks=1;;;0 published=1;;;0 ok=1;;;0;1 unknown=0;;;0;1 degraded=0;0;;0;1 "
                  "predicted=0;;0;0;1 failed=0;;0;0;1 unread=0;;;0\n"
                  "published consolidated status: Degraded\n"},
        CheckCase{"WorstDiskFirst",
                  CheckedHost({CheckedDisk(0, degradedHealth), CheckedDisk(1, predictedHealth),
                               CheckedDisk(2, errorHealth)}),
                  2,
                  "SATA CRITICAL - disk #2 M: Error, disk #1 M: Pred Fail, disk #0 M: Degraded; "
                  "3 disks, 3 published | disks=3;;;0 published=3;;;0 ok=0;;;0;3 unknown=0;;;0;3 "
                  "degraded=1;0;;0;3 predicted=1;;0;0;3 failed=1;;0;0;3 unread=0;;;0\n"
                  "disk #2 M: Error\n"
                  "disk #1 M: Pred Fail\n"
                  "disk #0 M: Degraded\n"}),
    [](const auto& one) { return one.param.name; });

INSTANTIATE_TEST_SUITE_P(
    UnreadSources, DiskCheckTest,
    testing::Values(
        CheckCase{"Disks", Expecting(2, WithoutDisks()), 3,
                  "SATA UNKNOWN - not readable: Drives | unread=1;;;0\n"
                  "root\\CIMv2 Drives: DENIED\n"},
        CheckCase{
            "DisksAndAPredictedFailure", WithoutDisks(WithFailingDevice({})), 2,
            "SATA CRITICAL - unknown device RAID/1: failure predicted; not readable: Drives | "
            "unread=1;;;0\n"
            "unknown device RAID/1: failure predicted\n"
            "root\\CIMv2 Drives: DENIED\n"},
        CheckCase{"Predictions",
                  WithoutPredictions(CheckedHost({CheckedDisk(0, fineHealth, std::nullopt)})), 3,
                  "SATA UNKNOWN - 1 disk, 1 published; not readable: Predictions | disks=1;;;0 "
                  "published=1;;;0 unread=1;;;0\n"
                  "root\\wmi Predictions: DENIED\n"},
        CheckCase{"PredictionsAndNoDisks", WithoutPredictions(CheckedHost({})), 3,
                  "SATA UNKNOWN - 0 disks, 0 published; not readable: Predictions | disks=0;;;0 "
                  "published=0;;;0 unread=1;;;0\n"
                  "root\\wmi Predictions: DENIED\n"},
        CheckCase{
            "PredictionsAndAFailedDisk",
            WithoutPredictions(CheckedHost({CheckedDisk(0, errorHealth, std::nullopt)})), 2,
            "SATA CRITICAL - disk #0 M: Error; 1 disk, 1 published; not readable: Predictions | "
            "disks=1;;;0 published=1;;;0 unread=1;;;0\n"
            "disk #0 M: Error\n"
            "root\\wmi Predictions: DENIED\n"},
        CheckCase{"MediaAndADegradedDisk",
                  WithoutMedia(CheckedHost({CheckedDisk(0, degradedHealth)})), 3,
                  "SATA UNKNOWN - disk #0 M: Degraded; 1 disk, 1 published; not readable: Media | "
                  "disks=1;;;0 published=1;;;0 ok=0;;;0;1 unknown=0;;;0;1 degraded=1;0;;0;1 "
                  "predicted=0;;0;0;1 failed=0;;0;0;1 unread=1;;;0\n"
                  "disk #0 M: Degraded\n"
                  "root\\CIMv2 Media: DENIED\n"}),
    [](const auto& one) { return one.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Expectations, DiskCheckTest,
    testing::Values(
        CheckCase{"Met", Expecting(1, CheckedHost({CheckedDisk(0, fineHealth)})), 0,
                  "SATA OK - 1 disk, 1 published | disks=1;;;0 published=1;1:1;1:;0 ok=1;;;0;1 "
                  "unknown=0;;;0;1 degraded=0;0;;0;1 predicted=0;;0;0;1 failed=0;;0;0;1 "
                  "unread=0;;;0\n"},
        CheckCase{"OfNoDisksMet", Expecting(0, CheckedHost({})), 0,
                  "SATA OK - 0 disks, 0 published | disks=0;;;0 published=0;0:0;0:;0 ok=0;;;0;0 "
                  "unknown=0;;;0;0 degraded=0;0;;0;0 predicted=0;;0;0;0 failed=0;;0;0;0 "
                  "unread=0;;;0\n"},
        CheckCase{"Fewer", Expecting(1, CheckedHost({})), 2,
                  "SATA CRITICAL - 1 published disk expected: 0 found; 0 disks, 0 published | "
                  "disks=0;;;0 published=0;1:1;1:;0 ok=0;;;0;0 unknown=0;;;0;0 degraded=0;0;;0;0 "
                  "predicted=0;;0;0;0 failed=0;;0;0;0 unread=0;;;0\n"
                  "1 published disk expected: 0 found\n"},
        CheckCase{
            "More",
            Expecting(1, CheckedHost({CheckedDisk(0, fineHealth), CheckedDisk(1, fineHealth)})), 1,
            "SATA WARNING - 1 published disk expected: 2 found; 2 disks, 2 published | "
            "disks=2;;;0 published=2;1:1;1:;0 ok=2;;;0;2 unknown=0;;;0;2 degraded=0;0;;0;2 "
            "predicted=0;;0;0;2 failed=0;;0;0;2 unread=0;;;0\n"
            "1 published disk expected: 2 found\n"},
        CheckCase{"MoreAndAnUnreadSource",
                  Expecting(1, WithoutMedia(CheckedHost({CheckedDisk(0, fineHealth),
                                                         CheckedDisk(1, fineHealth)}))),
                  3,
                  "SATA UNKNOWN - 1 published disk expected: 2 found; 2 disks, 2 published; not "
                  "readable: Media | disks=2;;;0 published=2;1:1;1:;0 ok=2;;;0;2 unknown=0;;;0;2 "
                  "degraded=0;0;;0;2 predicted=0;;0;0;2 failed=0;;0;0;2 unread=1;;;0\n"
                  "1 published disk expected: 2 found\n"
                  "root\\CIMv2 Media: DENIED\n"}),
    [](const auto& one) { return one.param.name; });

TEST(DiskCheck, NamesDisksThatCannotBeToldApart) {
    CheckSubject host = CheckedHost({CheckedDisk(0, fineHealth), CheckedDisk(1, fineHealth)});
    host.all.disks[1].deviceId = host.all.disks[0].deviceId;
    const view::CheckResult result = view::CheckDisks(host);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.text, HasSubstr("\nwarning: disks #0 and #1 have one plug-and-play ID: "));
}

/// Returns the line of many failing disks, each with the same texts.
std::string FirstLineOfFailing(std::size_t count, const std::string& text) {
    std::vector<OsDisk> disks;
    for (std::size_t number = 0; number < count; ++number) {
        disks.push_back(CheckedDisk(static_cast<std::int64_t>(number), {6, text}));
        disks.back().model = text;
    }
    const std::string said = view::CheckDisks(WithoutMedia(CheckedHost(disks))).text;
    return said.substr(0, said.find('\n'));
}

TEST(DiskCheck, CountsFindingsForWhichTheLineHasNoRoom) {
    EXPECT_THAT(FirstLineOfFailing(500, "Halden HD4000F05"),
                AllOf(StartsWith("SATA CRITICAL - disk #0 Halden HD4000F05: Halden HD4000F05, "
                                 "disk #1 "),
                      HasSubstr(" and 494 more; 500 disks, 500 published; not readable: Media | "
                                "disks=500;;;0 ")));
}

TEST(DiskCheck, CutsTextsThatAreTooLong) {
    // Three bytes each, so that the limit is inside a character.
    std::string text;
    for (int times = 0; times < 1'000; ++times) {
        text += "硬";
    }
    const std::string line = FirstLineOfFailing(100, text);
    EXPECT_THAT(line.size(), Le(1024));
    EXPECT_THAT(line, AllOf(HasSubstr("硬…: 硬"), HasSubstr("硬… and 99 more; 100 disks, ")));
}

TEST(DiskCheck, NeutralizesTextsOfDevices) {
    const std::string hostile = "x\n|'=\x1B[2J\u202E";
    CheckSubject host = CheckedHost({Labelled(CheckedDisk(0, {6, hostile}))});
    host.all.disks[0].model = hostile;
    host.all.disks[0].serialNumber = hostile;
    const std::string text = view::CheckDisks(host).text;
    EXPECT_THAT(text, StartsWith("SATA CRITICAL - disk #0 x\\x0a/'=\\x1b[2J\\u202e: x\\x0a/"));
    EXPECT_EQ(std::ranges::count(text, '|'), 1);
    EXPECT_EQ(std::ranges::count(text, '\n'), 2);
    EXPECT_THAT(text, AllOf(Not(HasSubstr("\x1B")), Not(HasSubstr("\u202E"))));
}

TEST(FailedCheck, IsUnknown) {
    const view::CheckResult result = view::FailedCheck("no such file: a|b\n", "root|1: denied\n");
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(result.text, "SATA UNKNOWN - no such file: a/b\\x0a\nroot/1: denied\n");
}

TEST(FailedCheck, CutsAReasonThatIsTooLong) {
    EXPECT_EQ(view::FailedCheck(std::string(70'000, 'x')).text,
              "SATA UNKNOWN - " + std::string(900, 'x') + "…\n");
}

}  // namespace
}  // namespace qv::test
