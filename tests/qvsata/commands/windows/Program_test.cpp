// Common to all commands: help, version, encoding, the choice of the machine.
#include <gmock/gmock.h>

#include "tests/qvsata/commands/windows/Desktop.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;

TEST(Program, AsksThisMachinesOwnManagementService) {
    const ToolRun run = RunTool({"enumerate", "QV_SATADiskDrive", "--live", "--format", "json"});
    ASSERT_EQ(run.exitCode, 0U) << run.errors;
    const json disks = json::parse(run.output)["objects"];
    // Wine has two disks with one device ID and without status.
    ASSERT_EQ(disks.size(), 2U);
    EXPECT_EQ(disks[0]["DeviceID"], disks[1]["DeviceID"]);
    EXPECT_TRUE(disks[0]["OperationalStatus"].is_null());
}

TEST(Program, WritesUtf8) {
    const std::string host = WriteFile(
        "qvsata-b\xC3\xBCro.json",
        R"({"computer": {"netbios": "N", "dnsHostname": "b\u00fcro"}, "namespaces": {}})");
    const ToolRun run = RunTool({"enumerate", "QV_WinComputerSystem", "--host", host});
    EXPECT_EQ(run.exitCode, 0U) << run.errors;
    EXPECT_THAT(run.output, HasSubstr("= b\xC3\xBCro\n"));
}

class ProgramHelp : public testing::TestWithParam<const char*> {};

TEST_P(ProgramHelp, EndsWithAnExample) {
    const ToolRun run = RunTool({GetParam(), "--help"});
    EXPECT_EQ(run.exitCode, 0U);
    EXPECT_THAT(run.output, HasSubstr("--host FILE"));
    EXPECT_THAT(run.output, HasSubstr(std::string("Example: qvsata ") + GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Commands, ProgramHelp,
                         testing::Values("topology", "classes", "enumerate", "get", "query",
                                         "associators", "references", "watch"),
                         [](const auto& command) { return std::string(command.param); });

TEST(Program, PrintsItsVersion) {
    EXPECT_EQ(RunTool({"--version"}).output, "qvsata 1.0.0\n");
}

}  // namespace
}  // namespace qv::test
