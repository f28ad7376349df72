#include <gmock/gmock.h>

#include <set>

#include "tests/windows/tool/Desktop.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

TEST(Classes, ListsEveryPublishedClassWithKindAndCount) {
    const json classes = Ask({"classes"});
    ASSERT_EQ(classes.size(), 38U);
    EXPECT_EQ(classes[1],
              json({{"class", "QV_SATADiskDrive"}, {"kind", "instance"}, {"instances", 3}}));
    EXPECT_EQ(classes[17]["kind"], "association");
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

TEST(Enumerate, GivesTypedJson) {
    const json disks = Ask({"enumerate", "qv_sataDISKdrive"});
    ASSERT_EQ(disks.size(), 3U);
    EXPECT_EQ(disks[0]["__CLASS"], "QV_SATADiskDrive");
    EXPECT_THAT(disks[0]["__RELPATH"].get<std::string>(),
                StartsWith("QV_SATADiskDrive.CreationClassName=\"QV_SATADiskDrive\",DeviceID="));
    EXPECT_EQ(disks[0]["Index"], 0);
    EXPECT_EQ(disks[0]["Size"], "240054796800");
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
    const std::string empty =
        WriteFile("qvsata-empty.json", R"({"computer": {"netbios": "N"}, "namespaces": {}})");
    const ToolRun run = RunTool({"enumerate", "QV_SATADiskDrive", "--host", empty});
    EXPECT_EQ(run.exitCode, 0U) << run.errors;
    EXPECT_EQ(run.output, "(none)\n");
}

TEST(Get, FindsAnInstanceInAnyOrderOfItsKeys) {
    const json disk = Ask({"enumerate", "QV_SATADiskDrive"})[1];
    const std::string path =
        "qv_satadiskdrive.SystemName='" + disk["SystemName"].get<std::string>() + "',DeviceID='" +
        disk["DeviceID"].get<std::string>() +
        "',SystemCreationClassName='QV_WinComputerSystem',CreationClassName='QV_SATADiskDrive'";
    EXPECT_EQ(Ask({"get", path}), json::array({disk}));
}

TEST(Get, FindsEveryPublishedInstanceByItsRelativePath) {
    const json links = Ask({"enumerate", "QV_SATAInitiatorTargetLogicalUnitPath"});
    ASSERT_EQ(links.size(), 3U);
    EXPECT_EQ(Ask({"get", links[2]["__RELPATH"]}), json::array({links[2]}));
}

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

TEST(Live, AsksThisMachinesOwnManagementService) {
    const ToolRun run = RunTool({"enumerate", "QV_SATADiskDrive", "--live", "--format", "json"});
    ASSERT_EQ(run.exitCode, 0U) << run.errors;
    const json disks = json::parse(run.output);
    // Wine has two disks with one device ID, and no status for either.
    ASSERT_EQ(disks.size(), 2U);
    EXPECT_EQ(disks[0]["DeviceID"], disks[1]["DeviceID"]);
    EXPECT_TRUE(disks[0]["OperationalStatus"].is_null());
}

TEST(Output, IsUtf8) {
    const std::string host = WriteFile(
        "qvsata-b\xC3\xBCro.json",
        R"({"computer": {"netbios": "N", "dnsHostname": "b\u00fcro"}, "namespaces": {}})");
    const ToolRun run = RunTool({"enumerate", "QV_WinComputerSystem", "--host", host});
    EXPECT_EQ(run.exitCode, 0U) << run.errors;
    EXPECT_THAT(run.output, HasSubstr("= b\xC3\xBCro\n"));
}

class Help : public testing::TestWithParam<const char*> {};

TEST_P(Help, EndsWithAnExample) {
    const ToolRun run = RunTool({GetParam(), "--help"});
    EXPECT_EQ(run.exitCode, 0U);
    EXPECT_THAT(run.output, HasSubstr("--host FILE"));
    EXPECT_THAT(run.output, HasSubstr(std::string("Example: qvsata ") + GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Commands, Help,
                         testing::Values("topology", "classes", "enumerate", "get", "query",
                                         "associators", "references", "watch"),
                         [](const auto& command) { return std::string(command.param); });

TEST(Version, IsPrinted) {
    EXPECT_EQ(RunTool({"--version"}).output, "qvsata 1.0.0\n");
}

}  // namespace
}  // namespace qv::test
