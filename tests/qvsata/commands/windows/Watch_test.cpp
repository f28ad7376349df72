#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <sstream>
#include <tuple>

#include "nlohmann/json.hpp"
#include "tests/qvsata/commands/windows/RunTool.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

std::string Drill(const std::string& name) {
    return SourceFile("hosts/drill/" + name + ".json");
}

/// Runs `watch` on these recordings of the drill, one after the other.
std::vector<std::string> WatchDrill(const std::vector<std::string>& names,
                                    const std::vector<std::string>& more) {
    std::vector<std::string> arguments{"watch", "--host", Drill(names.front())};
    for (std::size_t index = 1; index < names.size(); ++index) {
        arguments.insert(arguments.end(), {"--then", Drill(names[index])});
    }
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

const std::vector<std::string> wholeDrill{"0-healthy", "1-degraded",  "2-predicted",
                                          "3-failed",  "4-recovered", "5-no-contact",
                                          "6-pulled",  "7-replaced"};

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

TEST(Watch, AnnouncesWhatHappensFromRecordingToRecording) {
    const ToolRun run = RunQuickTool(WatchDrill(wholeDrill, {"--count", "7"}));
    EXPECT_EQ(run.exitCode, 0U) << run.errors;
    EXPECT_THAT(LinesOf(run.output),
                ElementsAre(HasSubstr("  604  disk degraded      #1   Halden HD4000F05 "),
                            HasSubstr("  605  failure predicted  #1   Halden HD4000F05 "),
                            HasSubstr("  603  disk error         #1   Halden HD4000F05 "),
                            HasSubstr("  602  disk OK            #1   Halden HD4000F05 "),
                            HasSubstr("  601  status unknown     #1   Halden HD4000F05 "),
                            HasSubstr("  613  disk disappeared   #1   Halden HD4000F05 "),
                            HasSubstr("  600  disk appeared      #1   Halden HD6000G02 ")));
}

TEST(Watch, SaysWhenWhatAndWhich) {
    const ToolRun run = RunQuickTool(WatchDrill({"1-degraded", "2-predicted"}, {"--count", "1"}));
    EXPECT_THAT(run.output,
                AllOf(MatchesRegex("\\d\\d\\d\\d-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d  605  .*\n"),
                      HasSubstr("  Degraded → Pred Fail  "),
                      EndsWith("  SCSI&DISK&VEN_HALDEN&PROD_HD4000F05&4&1C0B7E25&0&010000\n")));
}

TEST(Watch, SaysOnStandardErrorWhatItWaitsFor) {
    const ToolRun run =
        RunQuickTool(WatchDrill({"0-healthy", "1-degraded"}, {"--count", "1", "--real-time"}));
    EXPECT_EQ(run.errors,
              "watching 2 of 2 disks\n"
              "qvsata: looking at recording 2 of 2 in 30 s\n");
}

TEST(Watch, GivesEachEventAsALineOfJson) {
    const ToolRun run = RunQuickTool(WatchDrill({"0-healthy", "1-degraded", "2-predicted"},
                                                {"--count", "2", "--format", "json"}));
    EXPECT_EQ(run.exitCode, 0U) << run.errors;
    const std::vector<std::string> lines = LinesOf(run.output);
    ASSERT_THAT(lines, SizeIs(2));
    const json event = json::parse(lines[1]);
    EXPECT_EQ(event["formatVersion"], 1);
    EXPECT_EQ(event["event"], "605");
    EXPECT_EQ(event["severity"], "critical");
    EXPECT_EQ(event["number"], 1);
    EXPECT_EQ(event["oldStatus"], json({{"code", 3}, {"word", "Degraded"}}));
    EXPECT_EQ(event["newStatus"], json({{"code", 5}, {"word", "Pred Fail"}}));
    const json& indication = event["indication"];
    EXPECT_EQ(indication["__CLASS"], "QV_SATADeviceIndication");
    EXPECT_EQ(indication["EventID"], "605");
    EXPECT_EQ(indication["DeviceModel"], "Halden HD4000F05");
    EXPECT_EQ(indication["AlertingElementFormat"], 2);
    EXPECT_TRUE(indication["RackName"].is_null());
}

TEST(Watch, OfARecordingTellsNothingOfTheMachineThatReplaysIt) {
    const ToolRun run =
        RunQuickTool(WatchDrill({"0-healthy", "1-degraded"}, {"--count", "1", "--format", "json"}));
    const json indication = json::parse(run.output)["indication"];
    EXPECT_FALSE(indication.contains("NetworkAddresses"));
    EXPECT_FALSE(indication.contains("OSVersion"));
    EXPECT_FALSE(indication.contains("OSType"));
}

TEST(Watch, EndsAReplayBehindItsLastRecordingWithoutTheProvidersPauses) {
    const ToolRun run = RunTool(WatchDrill(wholeDrill, {}));
    EXPECT_EQ(run.exitCode, 0U) << run.errors;
    EXPECT_THAT(LinesOf(run.output), SizeIs(7));
    EXPECT_EQ(run.errors, "watching 2 of 2 disks\n");
}

TEST(Watch, EndsAfterSoManyEventsOfOneCycle) {
    const ToolRun run = RunQuickTool(WatchDrill({"4-recovered", "7-replaced"}, {"--count", "1"}));
    EXPECT_EQ(run.exitCode, 0U);
    EXPECT_THAT(LinesOf(run.output), ElementsAre(HasSubstr("  600  disk appeared  ")));
}

TEST(Watch, EndsAfterSoManySeconds) {
    const auto begin = std::chrono::steady_clock::now();
    const ToolRun run = RunTool(WatchDrill({"0-healthy"}, {"--for", "2", "--real-time"}));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
    EXPECT_EQ(run.exitCode, 0U);
    EXPECT_THAT(run.output, IsEmpty());
    EXPECT_EQ(run.errors,
              "watching 2 of 2 disks\n"
              "qvsata: looking at the disks again in 30 s\n");
}

TEST(Watch, EndsWhenItIsInterrupted) {
    const ToolRun run =
        InterruptQuickTool(WatchDrill({"0-healthy", "1-degraded"}, {"--real-time"}), "2 again");
    EXPECT_EQ(run.exitCode, 0U);
    EXPECT_THAT(LinesOf(run.output), ElementsAre(HasSubstr("  604  ")));
}

TEST(Watch, RunsOnTheMachineItself) {
    const ToolRun run = RunTool({"watch", "--live", "--for", "2"});
    EXPECT_EQ(run.exitCode, 0U) << run.errors;
    EXPECT_THAT(run.output, IsEmpty());
}

/// Runs the tool, expects it to fail with one line and no other output, and returns the line.
std::string WatchFailure(const std::vector<std::string>& arguments, unsigned long exitCode) {
    const ToolRun run = RunTool(arguments);
    EXPECT_EQ(run.exitCode, exitCode);
    EXPECT_THAT(run.output, IsEmpty());
    EXPECT_THAT(LinesOf(run.errors), SizeIs(1)) << run.errors;
    return run.errors;
}

TEST(Watch, NamesARecordingThatIsNotThere) {
    EXPECT_EQ(WatchFailure({"watch", "--host", Drill("0-healthy"), "--then", "/no/such.json"}, 1),
              "qvsata: /no/such.json: there is no such file\n");
}

TEST(Watch, NamesARecordingOfAnotherComputer) {
    EXPECT_THAT(WatchFailure({"watch", "--host", Drill("0-healthy"), "--then",
                              SourceFile("hosts/ahci-desktop.json")},
                             1),
                HasSubstr("ahci-desktop.json: not a recording of the computer of "));
}

TEST(Watch, NeedsAHostForWhatFollows) {
    EXPECT_THAT(WatchFailure({"watch", "--live", "--then", Drill("0-healthy")}, 2),
                HasSubstr("--then requires --host"));
    EXPECT_THAT(WatchFailure({"watch", "--then", Drill("0-healthy")}, 2), HasSubstr("--host"));
}

class WatchLimits : public testing::TestWithParam<std::tuple<std::string, std::string>> {};

TEST_P(WatchLimits, AreWholeNumbersFromOneUp) {
    const auto& [limit, value] = GetParam();
    EXPECT_THAT(WatchFailure({"watch", "--host", Drill("0-healthy"), limit, value}, 2),
                StartsWith("qvsata: " + limit + ": '" + value + "' is not a whole number from 1"));
}

INSTANTIATE_TEST_SUITE_P(Refused, WatchLimits,
                         testing::Combine(testing::Values("--count", "--for"),
                                          testing::Values("0", "-5", "1.5", "many", "99999999999",
                                                          "")));

TEST(Watch, RefusesAFormatOfOtherCommands) {
    EXPECT_THAT(WatchFailure({"watch", "--host", Drill("0-healthy"), "--format", "mof"}, 2),
                HasSubstr("'mof' is not text or json"));
}

}  // namespace
}  // namespace qv::test
