#include <gmock/gmock.h>

#include "tests/qvsata/commands/windows/Desktop.h"

namespace qv::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(Associators, TakeThePathInAnyOrderAndLetterCase) {
    // A controller, six ports, three disks, three extents and the collection.
    EXPECT_EQ(Ask({"associators", desktopComputer}).size(), 14U);
}

TEST(Associators, AreKeptByAssociationAndResultClass) {
    EXPECT_EQ(Ask({"associators", desktopComputer, "--result", "CIM_DiskDrive"}).size(), 3U);
    EXPECT_EQ(
        Ask({"associators", desktopComputer, "--assoc", "QV_WinComputerSystemSATALogicalPort"})
            .size(),
        6U);
}

TEST(Associators, AreKeptByRoles) {
    EXPECT_EQ(Ask({"associators", desktopComputer, "--role", "Antecedent"}).size(), 1U);
    EXPECT_EQ(Ask({"associators", desktopComputer, "--result-role", "PartComponent"}).size(), 13U);
}

TEST(Associators, NeedARoleThatAnAssociationHas) {
    const ToolRun run = RunTool(OnDesktop({"associators", desktopComputer, "--role", "Nobody"}));
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_EQ(run.errors, "qvsata: unknown role 'Nobody'\n");
}

TEST(Associators, AreWhatTheQueryGives) {
    EXPECT_EQ(Ask({"associators", desktopComputer, "--result", "QV_SATAStorageExtent"}),
              Ask({"query", "ASSOCIATORS OF {" + desktopComputer +
                                "} WHERE ResultClass=QV_SATAStorageExtent"}));
}

TEST(Associators, RefuseAnUnknownClass) {
    EXPECT_EQ(DesktopFailure({"associators", desktopComputer, "--assoc", "NoClass"}),
              "qvsata: unknown class 'NoClass'\n");
    EXPECT_EQ(DesktopFailure({"associators", desktopComputer, "--result", "NoClass"}),
              "qvsata: unknown class 'NoClass'\n");
}

TEST(Associators, RefuseAnObjectThatIsNotThere) {
    const std::string error =
        DesktopFailure({"associators", "QV_SATADiskDriveFW.InstanceID=\"none\""});
    EXPECT_THAT(error, HasSubstr("not found"));
}

TEST(Associators, RefuseWhatIsNoPathOfAnObject) {
    EXPECT_THAT(DesktopFailure({"associators", "A.B"}), StartsWith("qvsata: path: position 4: "));
    EXPECT_THAT(DesktopFailure({"references", "QV_SATADiskDrive"}), HasSubstr("is a class"));
}

}  // namespace
}  // namespace qv::test
