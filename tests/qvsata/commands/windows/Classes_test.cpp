#include <gmock/gmock.h>

#include "tests/qvsata/commands/windows/Desktop.h"
#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

TEST(Classes, ListsEveryPublishedClassWithKindAndCount) {
    const json classes = Ask({"classes"}, "classes");
    ASSERT_EQ(classes.size(), ExpectedClassNames().size());
    EXPECT_EQ(classes[1],
              json({{"class", "QV_SATADiskDrive"}, {"kind", "instance"}, {"instances", 3}}));
    EXPECT_EQ(classes[instanceClassTotal]["kind"], "association");
    EXPECT_EQ(classes[6]["instances"], 1);
}

TEST(Classes, AreATableAsText) {
    const ToolRun run = RunTool(OnDesktop({"classes"}));
    EXPECT_THAT(run.output, StartsWith("Class "));
    EXPECT_THAT(run.output, HasSubstr("\nQV_SATADiskDrive "));
    EXPECT_THAT(run.output, Not(HasSubstr("\r")));
    EXPECT_THAT(run.errors, IsEmpty());
}

TEST(Classes, AreDefinitionsAsMof) {
    const ToolRun run = RunTool(OnDesktop({"classes", "--format", "mof"}));
    EXPECT_THAT(run.output, HasSubstr("class QV_SATADiskDrive : CIM_DiskDrive\n"));
}

}  // namespace
}  // namespace qv::test
