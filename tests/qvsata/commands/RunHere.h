#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "SourceTree.h"
#include "qvsata/commands/Program.h"

namespace qv::test {

/// What a command printed, and how it ended.
struct Ending {
    int exitCode;
    std::string output;
    std::string errors;
};

/// Runs a command line in this process.
inline Ending RunHere(const std::vector<std::string>& arguments) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const int exitCode = tool::RunCommand(arguments);
    std::string output = testing::internal::GetCapturedStdout();
    return {exitCode, std::move(output), testing::internal::GetCapturedStderr()};
}

/// Runs a command on a host of the source tree: "hosts/ahci-desktop.json".
inline Ending RunOn(const std::string& host, std::vector<std::string> command) {
    command.insert(command.end(),
                   {"--host", QV_SOURCE_DIR "/" + host, "--mof", QV_SOURCE_DIR "/mof"});
    return RunHere(command);
}

}  // namespace qv::test
