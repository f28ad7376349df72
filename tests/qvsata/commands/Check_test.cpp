// What `check` says to a monitoring engine of a recording, and when it cannot look at one.
#include <gmock/gmock.h>

#include <algorithm>

#include "tests/qvsata/commands/RunHere.h"

namespace qv::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

struct Checked {
    const char* name;
    const char* host;
    std::vector<std::string> command;
    int exitCode;
    const char* output;
};

class Check : public testing::TestWithParam<Checked> {};

TEST_P(Check, SaysTheStateOfTheDisks) {
    const Ending run = RunOn(GetParam().host, GetParam().command);
    EXPECT_EQ(run.exitCode, GetParam().exitCode);
    EXPECT_EQ(run.output, GetParam().output);
    EXPECT_EQ(run.errors, "");
}

INSTANTIATE_TEST_SUITE_P(
    Recordings, Check,
    testing::Values(
        Checked{"Ok",
                "hosts/ahci-desktop.json",
                {"check"},
                0,
                "SATA OK - 3 disks, 3 published | disks=3;;;0 published=3;;;0 ok=3;;;0;3 "
                "unknown=0;;;0;3 degraded=0;0;;0;3 predicted=0;;0;0;3 failed=0;;0;0;3 "
                "unread=0;;;0\n"},
        Checked{"Warning",
                "hosts/drill/1-degraded.json",
                {"check"},
                1,
                "SATA WARNING - disk #1 Halden HD4000F05: Degraded; 2 disks, 2 published | "
                "disks=2;;;0 published=2;;;0 ok=1;;;0;2 unknown=0;;;0;2 degraded=1;0;;0;2 "
                "predicted=0;;0;0;2 failed=0;;0;0;2 unread=0;;;0\n"
                "disk #1 Halden HD4000F05 (S/N HDF4Z1230K7D): Degraded\n"},
        Checked{"Critical",
                "hosts/mixed-buses-failing.json",
                {"check", "--expect", "3"},
                2,
                "SATA CRITICAL - disk #2 Halden HD4000F05: Pred Fail, disk #3 Halden HD4000F05: "
                "Degraded; 5 disks, 3 published | disks=5;;;0 published=3;3:3;3:;0 ok=3;;;0;5 "
                "unknown=0;;;0;5 degraded=1;0;;0;5 predicted=1;;0;0;5 failed=0;;0;0;5 "
                "unread=0;;;0\n"
                "disk #2 Halden HD4000F05 (S/N HDF4Z1107Q2M): Pred Fail\n"
                "disk #3 Halden HD4000F05 (S/N HDF4Z1107Q9A): Degraded\n"},
        Checked{"Unknown",
                "hosts/drill/5-no-contact.json",
                {"check"},
                3,
                "SATA UNKNOWN - disk #1 Halden HD4000F05: No Contact; 2 disks, 2 published | "
                "disks=2;;;0 published=2;;;0 ok=1;;;0;2 unknown=1;;;0;2 degraded=0;0;;0;2 "
                "predicted=0;;0;0;2 failed=0;;0;0;2 unread=0;;;0\n"
                "disk #1 Halden HD4000F05 (S/N HDF4Z1230K7D): No Contact\n"},
        Checked{"FewerThanExpected",
                "hosts/drill/6-pulled.json",
                {"check", "--expect", "2"},
                2,
                "SATA CRITICAL - 2 published disks expected: 1 found; 1 disk, 1 published | "
                "disks=1;;;0 published=1;2:2;2:;0 ok=1;;;0;1 unknown=0;;;0;1 degraded=0;0;;0;1 "
                "predicted=0;;0;0;1 failed=0;;0;0;1 unread=0;;;0\n"
                "2 published disks expected: 1 found\n"},
        Checked{"MoreThanExpected",
                "hosts/ahci-desktop.json",
                {"check", "--expect", "2"},
                1,
                "SATA WARNING - 2 published disks expected: 3 found; 3 disks, 3 published | "
                "disks=3;;;0 published=3;2:2;2:;0 ok=3;;;0;3 unknown=0;;;0;3 degraded=0;0;;0;3 "
                "predicted=0;;0;0;3 failed=0;;0;0;3 unread=0;;;0\n"
                "2 published disks expected: 3 found\n"}),
    [](const auto& one) { return one.param.name; });

struct Unchecked {
    const char* name;
    std::vector<std::string> arguments;  ///< after "check"
    std::string reason;                  ///< its beginning
};

class CheckFailure : public testing::TestWithParam<Unchecked> {};

TEST_P(CheckFailure, IsUnknownOnStandardOutput) {
    std::vector<std::string> commandLine{"check"};
    commandLine.insert(commandLine.end(), GetParam().arguments.begin(), GetParam().arguments.end());
    const Ending run = RunHere(commandLine);
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(run.output, StartsWith("SATA UNKNOWN - " + GetParam().reason));
    EXPECT_EQ(std::ranges::count(run.output, '\n'), 1);
    EXPECT_EQ(run.errors, "");
}

const std::string checkedHost = QV_SOURCE_DIR "/hosts/ahci-desktop.json";
const std::string brokenHost = QV_SOURCE_DIR "/hosts/README.md";

INSTANTIATE_TEST_SUITE_P(
    Causes, CheckFailure,
    testing::Values(
        Unchecked{"NoSource", {}, "give --host FILE for a recorded host or --live for this "},
        Unchecked{"UnknownOption",
                  {"--hots", checkedHost},
                  "unknown option '--hots'; did you mean '--host'? (see --help)\n"},
        Unchecked{"NumberThatIsNone",
                  {"--host", checkedHost, "--expect", "x"},
                  "--expect: 'x' is not a whole number from 0 to 1000000000 (see --help)\n"},
        Unchecked{"TwoHosts", {"--host", checkedHost, "--host", checkedHost}, "--host"},
        Unchecked{"MissingFile", {"--host", "no|such.json"}, "no/such.json: "},
        Unchecked{"BrokenRecording", {"--host", brokenHost}, brokenHost + ": line 1, column 1: "},
        Unchecked{"MissingClasses", {"--host", checkedHost, "--mof", "nowhere"}, "nowhere"},
        Unchecked{"Machine", {"--live"}, "--live needs Windows; "},
        Unchecked{
            "Library", {"--host", checkedHost, "--dll", "other.dll"}, "--dll needs Windows; "}),
    [](const auto& one) { return one.param.name; });

TEST(CheckHelp, SaysTheExitCodes) {
    const Ending run = RunHere({"check", "--help"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.output, HasSubstr("Exit code: 0 OK, 1 WARNING, 2 CRITICAL, 3 UNKNOWN"));
}

}  // namespace
}  // namespace qv::test
