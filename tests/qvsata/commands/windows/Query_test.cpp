#include <gmock/gmock.h>

#include "tests/qvsata/commands/windows/Desktop.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

TEST(Query, SelectsOnASuperclass) {
    const json disks =
        Ask({"query", "SELECT DeviceID FROM CIM_DiskDrive WHERE DeviceID LIKE '%HALDEN%'"});
    ASSERT_EQ(disks.size(), 2U);
    EXPECT_THAT(disks[0]["DeviceID"].get<std::string>(), StartsWith("IDE&DISKHALDEN_"));
    EXPECT_FALSE(disks[0].contains("Model"));
}

TEST(Query, NamesAnUnknownProperty) {
    const ToolRun run = RunTool(OnDesktop({"query", "SELECT Index FROM CIM_DiskDrive"}));
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_THAT(run.errors,
                HasSubstr("query: column 8: unknown property 'Index' of class 'CIM_DiskDrive'\n"));
}

TEST(Query, PrintsTheSystemPropertiesThatItSelects) {
    const std::string query = "SELECT __PATH FROM QV_WinComputerSystem";
    const json systems = Ask({"query", query});
    ASSERT_EQ(systems.size(), 1U);
    EXPECT_THAT(systems[0]["__PATH"].get<std::string>(), HasSubstr("\\root\\QVQ:QV_Win"));
    EXPECT_THAT(RunTool(OnDesktop({"query", query})).output, HasSubstr("    __PATH = \\\\"));
}

TEST(Query, FollowsAssociations) {
    const std::string system = Ask({"enumerate", "QV_WinComputerSystem"})[0]["__RELPATH"];
    EXPECT_EQ(
        Ask({"query", "ASSOCIATORS OF {" + system + "} WHERE ResultClass=QV_SATADiskDrive"}).size(),
        3U);
    EXPECT_EQ(Ask({"query", "REFERENCES OF {" + system +
                                "} WHERE ResultClass=QV_WinComputerSystemSATADiskDrive"})
                  .size(),
              3U);
}

TEST(Query, GivesClassDefinitions) {
    const ToolRun run = RunTool(OnDesktop(
        {"query", "SELECT * FROM meta_class WHERE __CLASS='QV_SATADiskDrive'", "--format", "mof"}));
    EXPECT_THAT(run.output, HasSubstr("class QV_SATADiskDrive : CIM_DiskDrive"));
}

}  // namespace
}  // namespace qv::test
