#include "qvsata/commands/Program.h"

#include <gtest/gtest.h>

#include "SourceTree.h"

namespace qv::test {
namespace {

class ProgramTest : public testing::TestWithParam<std::vector<std::string>> {};

TEST_P(ProgramTest, NamesAnOptionThatNeedsWindows) {
    std::vector<std::string> arguments{"topology"};
    arguments.insert(arguments.end(), GetParam().begin(), GetParam().end());
    testing::internal::CaptureStderr();
    EXPECT_EQ(tool::RunCommand(arguments), 1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "qvsata: " + GetParam().front() +
                  " needs Windows; this program replays recordings (--host)\n");
}

const std::string host = QV_SOURCE_DIR "/hosts/ahci-desktop.json";

INSTANTIATE_TEST_SUITE_P(Options, ProgramTest,
                         testing::Values(std::vector<std::string>{"--live"},
                                         std::vector<std::string>{"--dll", "other.dll", "--host",
                                                                  host},
                                         std::vector<std::string>{"--log", "logs", "--host", host},
                                         std::vector<std::string>{"--registered", "--host", host}));

}  // namespace
}  // namespace qv::test
