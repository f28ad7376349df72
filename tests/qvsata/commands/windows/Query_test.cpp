#include <gmock/gmock.h>

#include "tests/qvsata/commands/windows/Desktop.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;

TEST(Query, SelectsOnASuperclass) {
    const json disks = Ask({"query", "SELECT Name, Index FROM CIM_DiskDrive WHERE Index > 0"});
    ASSERT_EQ(disks.size(), 2U);
    EXPECT_EQ(disks[0]["Index"], 1);
    EXPECT_FALSE(disks[0].contains("Model"));
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
