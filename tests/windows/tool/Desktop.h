#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "nlohmann/json.hpp"
#include "tests/windows/tool/RunTool.h"

// The tool on the recorded desktop: one controller with six ports, and three disks.

namespace qv::test {

inline std::string Desktop() {
    return SourceFile("hosts/ahci-desktop.json");
}

inline std::vector<std::string> OnDesktop(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--host", Desktop()});
    return arguments;
}

/// The tool's JSON answer.
inline nlohmann::json Ask(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--format", "json"});
    const ToolRun run = RunTool(OnDesktop(std::move(arguments)));
    EXPECT_EQ(run.exitCode, 0U) << run.errors;
    return nlohmann::json::parse(run.output);
}

}  // namespace qv::test
