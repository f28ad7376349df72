// This machine, recorded and replayed. Under Wine it has a disk, partitions and no controllers, and
// some of the classes are missing.
#include <gmock/gmock.h>

#include "tests/qvsata/commands/windows/RunTool.h"

namespace qv::test {
namespace {

using testing::HasSubstr;

class ThisMachine : public testing::Test {
protected:
    static void SetUpTestSuite() {
        file = WriteFile("qvsata-captured.json", "");
        run = RunTool({"capture", "--live", "-o", file});
    }

    static std::string Live(const std::string& base) {
        return RunTool({"enumerate", base, "--live"}).output;
    }
    static std::string Replayed(const std::string& base) {
        return RunTool({"enumerate", base, "--host", file}).output;
    }

    static inline std::string file;
    static inline ToolRun run;
};

TEST_F(ThisMachine, IsRecorded) {
    EXPECT_NE(run.exitCode, 1U) << run.errors;
    EXPECT_THAT(run.output, HasSubstr("root\\CIMv2 Win32_DiskDrive: "));
}

TEST_F(ThisMachine, PublishesTheSameInstancesReplayed) {
    const std::string live = Live("CIM_ManagedElement");
    EXPECT_THAT(live, HasSubstr("QV_WinComputerSystem"));
    EXPECT_EQ(Replayed("CIM_ManagedElement"), live);
}

TEST_F(ThisMachine, PublishesTheSameAssociationsReplayed) {
    EXPECT_EQ(Replayed("CIM_Component") + Replayed("CIM_Dependency") +
                  Replayed("CIM_ElementLocation") + Replayed("CIM_MemberOfCollection"),
              Live("CIM_Component") + Live("CIM_Dependency") + Live("CIM_ElementLocation") +
                  Live("CIM_MemberOfCollection"));
}

TEST_F(ThisMachine, ListsTheSameDisksReplayed) {
    EXPECT_EQ(RunTool({"disks", "--host", file}).output, RunTool({"disks", "--live"}).output);
}

TEST_F(ThisMachine, DoesNotDifferFromItsRecording) {
    const ToolRun diff = RunTool({"diff", file, "--live"});
    EXPECT_EQ(diff.exitCode, 0U) << diff.errors;
    EXPECT_THAT(diff.output, HasSubstr("to   this machine ("));
    EXPECT_THAT(diff.output, HasSubstr("\nno differences\n"));
}

TEST_F(ThisMachine, DiffersFromAnotherOne) {
    const ToolRun diff = RunTool({"diff", SourceFile("hosts/ahci-desktop.json"), "--live"});
    EXPECT_EQ(diff.exitCode, 4U) << diff.errors;
    EXPECT_THAT(diff.output, HasSubstr("gone: disk #0 NORTHLAKE N240S ATA Device"));
    EXPECT_THAT(diff.output, HasSubstr("new: disk #0 "));
}

TEST_F(ThisMachine, KeepsItsShapeRedacted) {
    const std::string itsFile = WriteFile("qvsata-redacted.json", "");
    const ToolRun redacted = RunTool({"capture", "--live", "--redact", "-o", itsFile});
    EXPECT_NE(redacted.exitCode, 1U) << redacted.errors;
    EXPECT_EQ(RunTool({"classes", "--host", itsFile}).output,
              RunTool({"classes", "--live"}).output);
}

}  // namespace
}  // namespace qv::test
