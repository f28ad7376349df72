// The answer of every command to bad input: one line and an exit code.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

#include "tests/qvsata/commands/windows/Desktop.h"

namespace qv::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// Runs the tool, expects it to fail with one line on standard error, and returns the line.
std::string Failure(const std::vector<std::string>& arguments, unsigned long exitCode) {
    const ToolRun run = RunTool(arguments);
    EXPECT_EQ(run.exitCode, exitCode);
    EXPECT_THAT(run.output, IsEmpty());
    EXPECT_THAT(run.errors, StartsWith("qvsata: "));
    EXPECT_EQ(std::ranges::count(run.errors, '\n'), 1) << run.errors;
    EXPECT_TRUE(run.errors.ends_with('\n'));
    return run.errors;
}

std::string FailureOfHost(const std::string& text) {
    return Failure({"classes", "--host", WriteFile("qvsata-bad-host.json", text)}, 1);
}

TEST(BadInput, HostThatIsNotThereIsNamed) {
    EXPECT_THAT(Failure({"classes", "--host", "/no/such.json"}, 1), HasSubstr("/no/such.json"));
}

TEST(BadInput, HostThatIsNotJsonIsNamedWithThePlace) {
    EXPECT_THAT(FailureOfHost("{\n  \"computer\": oops\n}"),
                HasSubstr("qvsata-bad-host.json: line 2, column 15: "));
}

TEST(BadInput, HostWithoutNamespacesIsRefused) {
    EXPECT_THAT(FailureOfHost(R"({"computer": {"netbios": "N"}})"), HasSubstr("namespaces"));
}

TEST(BadInput, HostWithAWrongTypeIsRefusedByPlace) {
    EXPECT_THAT(FailureOfHost(R"({"computer": {"netbios": 3}, "namespaces": {}})"),
                EndsWith("qvsata-bad-host.json: computer.netbios: expected a text\n"));
}

TEST(BadInput, MofIsNamedWithLineAndColumn) {
    const auto folder = std::filesystem::temp_directory_path() / "qvsata-bad-mof";
    std::filesystem::create_directories(folder);
    WriteFile("qvsata-bad-mof/cim_schema.mof", "class A {\n  uint16 = 3;\n};\n");
    WriteFile("qvsata-bad-mof/cim_schema_later.mof", "");
    WriteFile("qvsata-bad-mof/qv_computer_system.mof", "");
    WriteFile("qvsata-bad-mof/qv_group_collection.mof", "");
    WriteFile("qvsata-bad-mof/qv_software_identity.mof", "");
    WriteFile("qvsata-bad-mof/qvwmisata.mof", "");
    EXPECT_THAT(Failure({"classes", "--host", Desktop(), "--mof", folder.string()}, 1),
                HasSubstr("cim_schema.mof:2:10: "));
}

TEST(BadInput, MofThatIsADirectoryIsNamed) {
    const std::string folder = std::filesystem::temp_directory_path().string();
    EXPECT_EQ(Failure({"classes", "--host", Desktop(), "--installed", folder}, 1),
              "qvsata: " + folder + ": a directory, not a file\n");
}

TEST(BadInput, InstalledClassesThatLackOursAreNamed) {
    const std::string file = WriteFile("qvsata-older.mof", R"(
#pragma namespace("\\\\.\\root\\QVQ")
[Abstract] class CIM_ManagedElement { string Caption; string Description; string ElementName; };
)");
    const std::string failure = Failure({"classes", "--host", Desktop(), "--installed", file}, 1);
    EXPECT_THAT(failure,
                HasSubstr(": class CIM_ManagedElement is in the namespace already, which "
                          "lacks CIM_ManagedElement.InstanceID, CIM_ManagedSystemElement, "));
    EXPECT_THAT(failure, HasSubstr("(WBEM_E_ALREADY_EXISTS 0x80041019)\n"));
}

TEST(BadInput, MofThatIsMissingIsNamed) {
    EXPECT_THAT(Failure({"classes", "--host", Desktop(), "--mof", "/no/such"}, 1),
                HasSubstr("cim_schema.mof"));
}

TEST(BadInput, LibraryThatIsMissingIsNamed) {
    EXPECT_THAT(Failure({"classes", "--host", Desktop(), "--dll", "/no/such.dll"}, 1),
                HasSubstr("/no/such.dll"));
}

TEST(BadInput, ProviderThatCannotBeLoadedLeavesACheckUnknown) {
    const ToolRun run = RunTool({"check", "--host", Desktop(), "--dll", "/no/such.dll"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(run.output, StartsWith("SATA UNKNOWN - "));
    EXPECT_THAT(run.output, HasSubstr("/no/such.dll"));
    EXPECT_THAT(run.errors, IsEmpty());
}

TEST(BadInput, ClassIsNamed) {
    EXPECT_EQ(Failure({"enumerate", "X", "--host", Desktop()}, 1), "qvsata: unknown class 'X'\n");
    EXPECT_EQ(Failure({"query", "SELECT * FROM X", "--host", Desktop()}, 1),
              "qvsata: unknown class 'X'\n");
    EXPECT_EQ(Failure({"get", "X.K=1", "--host", Desktop()}, 1), "qvsata: unknown class 'X'\n");
}

// An association leads to a class that the files do not define.
TEST(BadInput, MofWithoutTheClassOfANeighbourEndsTheWalk) {
    const auto folder = std::filesystem::temp_directory_path() / "qvsata-lost-class";
    std::filesystem::create_directories(folder);
    WriteFile("qvsata-lost-class/cim_schema.mof", "");
    WriteFile("qvsata-lost-class/cim_schema_later.mof", "");
    WriteFile("qvsata-lost-class/qv_computer_system.mof", "");
    WriteFile("qvsata-lost-class/qv_group_collection.mof", "");
    WriteFile("qvsata-lost-class/qv_software_identity.mof", "");
    WriteFile("qvsata-lost-class/qvwmisata.mof", R"(
#pragma namespace("\\\\.\\root\\QVQ")
class CIM_Any { };
[dynamic, provider("P")] class QV_WinComputerSystem {
    [key] string CreationClassName; [key] string Name;
};
[dynamic, provider("P"), Association] class QV_WinComputerSystemSATADiskDrive {
    [key] QV_WinComputerSystem ref GroupComponent; [key] CIM_Any ref PartComponent;
};
)");
    EXPECT_EQ(Failure({"associators",
                       "QV_WinComputerSystem.CreationClassName=\"QV_WinComputerSystem\","
                       "Name=\"STUDY-desk.example.org\"",
                       "--host", Desktop(), "--mof", folder.string()},
                      1),
              "qvsata: unknown class 'QV_SATADiskDrive'\n");
}

TEST(BadInput, PathIsNamedWithThePosition) {
    EXPECT_THAT(Failure({"get", "QV_SATADiskDrive.", "--host", Desktop()}, 1),
                StartsWith("qvsata: path: position 18: "));
}

TEST(BadInput, PathThatNamesNothingIsNotFound) {
    EXPECT_EQ(Failure({"get", "QV_SATADiskDrive.DeviceID='x'", "--host", Desktop()}, 1),
              "qvsata: QV_SATADiskDrive.DeviceID='x': not found (0x80041002)\n");
}

TEST(BadInput, QueryIsNamedWithTheColumn) {
    EXPECT_THAT(Failure({"query", "SELECT * FRM X", "--host", Desktop()}, 1),
                StartsWith("qvsata: query: column 10: "));
}

TEST(BadInput, UsageNeedsExactlyOneSource) {
    EXPECT_THAT(Failure({"classes"}, 2), HasSubstr("give --host FILE"));
    EXPECT_THAT(Failure({"classes", "--live", "--host", Desktop()}, 2), HasSubstr("--live"));
}

TEST(BadInput, UsageNamesAnUnknownFormat) {
    EXPECT_THAT(Failure({"classes", "--live", "--format", "xml"}, 2), HasSubstr("'xml'"));
}

TEST(BadInput, UsageNeedsACommandAndItsArgument) {
    Failure({}, 2);
    Failure({"enumerate", "--live"}, 2);
    Failure({"frobnicate"}, 2);
    Failure({"classes", "--live", "--nonsense"}, 2);
}

TEST(BadInput, UsageRefusesALibraryBesideTheRegisteredOne) {
    Failure({"classes", "--live", "--registered", "--dll", "x.dll"}, 2);
}

TEST(BadInput, RegisteredProviderFailsWhereTheProviderIsNot) {
    EXPECT_EQ(Failure({"classes", "--host", Desktop(), "--registered"}, 1),
              "qvsata: starting the provider: class not registered (0x80040154)\n");
}

}  // namespace
}  // namespace qv::test
