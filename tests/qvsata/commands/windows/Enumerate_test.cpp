#include <gmock/gmock.h>

#include "tests/qvsata/commands/windows/Desktop.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(Enumerate, GivesTypedJson) {
    const json disks = Ask({"enumerate", "qv_sataDISKdrive"});
    ASSERT_EQ(disks.size(), 3U);
    EXPECT_EQ(disks[0]["__CLASS"], "QV_SATADiskDrive");
    EXPECT_THAT(disks[0]["__RELPATH"].get<std::string>(),
                StartsWith("QV_SATADiskDrive.CreationClassName=\"QV_SATADiskDrive\",DeviceID="));
    EXPECT_EQ(disks[0]["Index"], 0);
    EXPECT_EQ(disks[0]["Size"], 240054796800U);
    EXPECT_EQ(disks[0]["OperationalStatus"], json({2}));
    EXPECT_TRUE(disks[0]["InstallDate"].is_null());
}

TEST(Enumerate, GivesAlignedText) {
    const ToolRun run = RunTool(OnDesktop({"enumerate", "QV_SATADiskDrive"}));
    EXPECT_THAT(run.output, HasSubstr("\n    Index                   = 0\n"));
    EXPECT_THAT(run.output, HasSubstr("    StatusDescriptions      = {\"OK\"}\n"));
    EXPECT_THAT(run.output, Not(HasSubstr("\r")));
}

TEST(Enumerate, GivesMof) {
    const ToolRun run = RunTool(OnDesktop({"enumerate", "QV_SATADiskDrive", "--format", "mof"}));
    EXPECT_THAT(run.output, StartsWith("instance of QV_SATADiskDrive\n{\n"));
    EXPECT_THAT(run.output, HasSubstr("    Size = 240054796800;\n"));
}

TEST(Enumerate, GivesTheInstancesOfSubclasses) {
    EXPECT_EQ(Ask({"enumerate", "CIM_ProtocolEndpoint"}).size(), 9U);
}

TEST(Enumerate, SaysThatThereAreNone) {
    const std::string empty = WriteFile("qvsata-empty.json", hostWithoutStorage);
    const ToolRun run = RunTool({"enumerate", "QV_SATADiskDrive", "--host", empty});
    EXPECT_EQ(run.exitCode, 0U) << run.errors;
    EXPECT_EQ(run.output, "(none)\n");
}

}  // namespace
}  // namespace qv::test
