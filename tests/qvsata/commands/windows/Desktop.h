#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "nlohmann/json.hpp"
#include "tests/qvsata/commands/windows/RunTool.h"

// The tool on the recorded desktop: one controller with six ports, and three disks.

namespace qv::test {

inline std::string Desktop() {
    return SourceFile("hosts/ahci-desktop.json");
}

inline std::vector<std::string> OnDesktop(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--host", Desktop()});
    return arguments;
}

/// Returns a member of the tool's JSON answer.
inline nlohmann::json Ask(std::vector<std::string> arguments, const char* member = "objects") {
    arguments.insert(arguments.end(), {"--format", "json"});
    const ToolRun run = RunTool(OnDesktop(std::move(arguments)));
    EXPECT_EQ(run.exitCode, 0U) << run.errors;
    const nlohmann::json document = nlohmann::json::parse(run.output);
    EXPECT_EQ(document["formatVersion"], 1);
    return document[member];
}

/// Returns the standard error of a failing request, which prints nothing else.
inline std::string DesktopFailure(std::vector<std::string> arguments) {
    const ToolRun run = RunTool(OnDesktop(std::move(arguments)));
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_EQ(run.output, "");
    return run.errors;
}

/// The path of the desktop's computer, in another letter case and key order.
inline const std::string desktopComputer =
    "qv_wincomputersystem.NAME=\"STUDY-desk.example.org\","
    "CreationClassName=\"QV_WinComputerSystem\"";

}  // namespace qv::test
