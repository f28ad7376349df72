#include <gmock/gmock.h>

#include "tests/windows/tool/Desktop.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

const std::string computer =
    "qv_wincomputersystem.NAME=\"STUDY-desk.example.org\","
    "CreationClassName=\"QV_WinComputerSystem\"";

std::string AssociatorsFailure(const std::vector<std::string>& arguments) {
    const ToolRun run = RunTool(OnDesktop(arguments));
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_EQ(run.output, "");
    return run.errors;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

TEST(Associators, TakeThePathInAnyOrderAndLetterCase) {
    // A controller, six ports, three disks, three extents and the collection.
    EXPECT_EQ(Ask({"associators", computer}).size(), 14U);
}

TEST(Associators, AreKeptByAssociationAndResultClass) {
    EXPECT_EQ(Ask({"associators", computer, "--result", "CIM_DiskDrive"}).size(), 3U);
    EXPECT_EQ(
        Ask({"associators", computer, "--assoc", "QV_WinComputerSystemSATALogicalPort"}).size(),
        6U);
}

TEST(Associators, AreKeptByRoles) {
    EXPECT_EQ(Ask({"associators", computer, "--role", "Antecedent"}).size(), 1U);
    EXPECT_EQ(Ask({"associators", computer, "--result-role", "PartComponent"}).size(), 13U);
}

TEST(Associators, AreNoneForARoleThatNoAssociationHas) {
    const ToolRun run = RunTool(OnDesktop({"associators", computer, "--role", "Nobody"}));
    EXPECT_EQ(run.exitCode, 0U);
    EXPECT_EQ(run.output, "(none)\n");
}

TEST(Associators, AreWhatTheQueryGives) {
    EXPECT_EQ(
        Ask({"associators", computer, "--result", "QV_SATAStorageExtent"}),
        Ask({"query", "ASSOCIATORS OF {" + computer + "} WHERE ResultClass=QV_SATAStorageExtent"}));
}

TEST(References, AreTheAssociationsOfAnObject) {
    EXPECT_EQ(Ask({"references", computer}).size(), 14U);
    EXPECT_EQ(Ask({"references", computer, "--assoc", "QV_SATAHostedCollection"}).size(), 1U);
    EXPECT_EQ(Ask({"references", computer, "--role", "Antecedent"}).size(), 1U);
}

TEST(References, AreWhatTheQueryGives) {
    EXPECT_EQ(Ask({"references", computer, "--role", "GroupComponent"}),
              Ask({"query", "REFERENCES OF {" + computer + "} WHERE Role=GroupComponent"}));
}

TEST(References, RefuseAnUnknownClass) {
    EXPECT_EQ(AssociatorsFailure({"references", computer, "--assoc", "NoClass"}),
              "qvsata: unknown class 'NoClass'\n");
}

TEST(Associators, RefuseAnUnknownClass) {
    EXPECT_EQ(AssociatorsFailure({"associators", computer, "--assoc", "NoClass"}),
              "qvsata: unknown class 'NoClass'\n");
    EXPECT_EQ(AssociatorsFailure({"associators", computer, "--result", "NoClass"}),
              "qvsata: unknown class 'NoClass'\n");
}

TEST(Associators, RefuseAnObjectThatIsNotThere) {
    const std::string error =
        AssociatorsFailure({"associators", "QV_SATADiskDriveFW.InstanceID=\"none\""});
    EXPECT_THAT(error, HasSubstr("not found"));
}

TEST(Associators, RefuseWhatIsNoPathOfAnObject) {
    EXPECT_THAT(AssociatorsFailure({"associators", "A.B"}),
                StartsWith("qvsata: path: position 4: "));
    EXPECT_THAT(AssociatorsFailure({"references", "QV_SATADiskDrive"}), HasSubstr("is a class"));
}

TEST(Get, FindsAnAssociationWithReferencesToAnotherServerName) {
    const json links = Ask({"enumerate", "QV_TSATAProtocolEndpointSATADiskDrive"});
    ASSERT_EQ(links.size(), 3U);
    const std::string path = links[1]["__RELPATH"];
    ASSERT_THAT(path, HasSubstr(R"("\\\\STUDY-DESK\\root)"));
    EXPECT_EQ(Ask({"get", Replaced(path, "STUDY-DESK", "elsewhere")}), json::array({links[1]}));
}

}  // namespace
}  // namespace qv::test
