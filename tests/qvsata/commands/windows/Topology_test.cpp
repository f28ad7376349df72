#include <gmock/gmock.h>
#include <windows.h>

#include "nlohmann/json.hpp"
#include "tests/qvsata/commands/windows/RunTool.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

std::string Topology(const std::string& host, const std::string& format = "text") {
    const ToolRun run = RunTool({"topology", "--host", host, "--format", format});
    EXPECT_EQ(run.exitCode, 0U) << run.errors;
    return run.output;
}

TEST(Topology, TreeShowsDisksBelowTheirChannels) {
    EXPECT_THAT(
        Topology(SourceFile("hosts/ahci-desktop.json")),
        AllOf(StartsWith("study-desk.example.org\n"
                         "└─ Standard AHCI 1.0 Serial ATA Controller  OK\n"
                         "   │  driver msahci · SATA firmware 05 · SATA BIOS 05\n"
                         "   ├─ channel 4&1F2B6C03&0&0  OK\n"
                         "   │  └─ #0  OK  NORTHLAKE N240S ATA Device    240.1 GB   223.6 GiB"),
              HasSubstr("channel 4&1F2B6C03&0&2  OK  no disk\n"), EndsWith("\n3 disks: 3 OK\n")));
}

TEST(Topology, TreeShowsDisksOfAControllerWithoutChannels) {
    EXPECT_THAT(Topology(SourceFile("hosts/mixed-buses-failing.json")),
                AllOf(HasSubstr("├─ Standard SATA AHCI Controller  OK\n"
                                "│  ├─ #2  ! Pred Fail  Halden HD4000F05  4000.8 GB  3726.0 GiB"),
                      HasSubstr("│  └─ #3  ! Degraded   Halden HD4000F05"),
                      HasSubstr("3 disks: 1 OK, 1 Degraded, 1 Pred Fail")));
}

TEST(Topology, TreeOfAHostWithoutStorageSaysSo) {
    const std::string empty = WriteFile("qvsata-bare.json", hostWithoutStorage);
    EXPECT_THAT(Topology(empty), HasSubstr("└─ no IDE or SATA controllers\nno disks"));
}

constexpr const char* failing = "hosts/mixed-buses-failing.json";

/// Runs `topology` on a console, with this value of NO_COLOR.
ToolRun OnConsole(const char* host, Output destination, const wchar_t* noColour) {
    SetEnvironmentVariableW(L"NO_COLOR", noColour);
    ToolRun run = RunQuickToolOnConsole({"topology", "--host", SourceFile(host)}, destination);
    SetEnvironmentVariableW(L"NO_COLOR", nullptr);
    EXPECT_EQ(run.exitCode, 0U);
    return run;
}

const std::string red = "\x1B[91m";
const std::string yellow = "\x1B[93m";
const std::string green = "\x1B[32m";

/// Matches a screen without any of these colours.
const auto isNotColoured =
    AllOf(Not(HasSubstr(red)), Not(HasSubstr(yellow)), Not(HasSubstr(green)));

TEST(Topology, ColoursAreThoseOfTheStatusOnATerminal) {
    EXPECT_THAT(OnConsole(failing, Output::console, nullptr).screen,
                AllOf(HasSubstr(yellow + "! Pred Fail"), HasSubstr(yellow + "! Degraded"),
                      HasSubstr(green + "OK")));
    EXPECT_THAT(OnConsole("hosts/drill/3-failed.json", Output::console, nullptr).screen,
                HasSubstr(red + "! Error"));
}

TEST(Topology, ColoursAreNotShownWhereTheUserWantsNone) {
    EXPECT_THAT(OnConsole(failing, Output::console, L"1").screen,
                AllOf(HasSubstr("! Pred Fail"), isNotColoured));
}

TEST(Topology, ColoursAreNeitherInAFileNorOnTheTerminalWhenOutputIsRedirected) {
    const ToolRun run = OnConsole(failing, Output::redirected, nullptr);
    EXPECT_THAT(run.output, AllOf(HasSubstr("! Pred Fail"), Not(HasSubstr("\x1B"))));
    EXPECT_THAT(run.screen, AllOf(Not(HasSubstr("Pred Fail")), isNotColoured));
}

TEST(Topology, DocumentNestsDisksInChannelsAndControllers) {
    const json document = json::parse(Topology(SourceFile("hosts/ahci-desktop.json"), "json"));
    EXPECT_EQ(document["computer"], "study-desk.example.org");
    const json controller = document["controllers"].at(0);
    EXPECT_EQ(controller["driver"], json({{"name", "msahci"}, {"version", nullptr}}));
    EXPECT_EQ(controller["channels"].size(), 6U);
    EXPECT_EQ(controller["channels"][0]["disks"][0]["size"], 240054796800);
    EXPECT_EQ(document["looseDisks"], json::array());
}

TEST(Topology, GraphLabelsEdgesAndNodesWithTheirClasses) {
    const std::string graph = RunTool({"topology", "--host", SourceFile("hosts/ahci-desktop.json"),
                                       "--format", "dot", "--all"})
                                  .output;
    EXPECT_THAT(graph, StartsWith("digraph associations {\n"));
    EXPECT_THAT(graph, HasSubstr(" [label=\"QV_SATAHostedCollection\"];\n"));
    EXPECT_THAT(graph, HasSubstr("[label=\"QV_SATAStorageExtent\\n\\\\\\\\.\\\\PHYSICALDRIVE0\"]"));
}

TEST(Topology, RefusesAFormatOfOtherCommands) {
    const ToolRun run =
        RunTool({"topology", "--host", SourceFile("hosts/ahci-desktop.json"), "--format", "mof"});
    EXPECT_EQ(run.exitCode, 2U);
    EXPECT_THAT(run.errors, HasSubstr("'mof' is not text, json or dot"));
}

}  // namespace
}  // namespace qv::test
