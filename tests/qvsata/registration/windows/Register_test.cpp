// qvsata register and unregister, on a machine whose MOF compiler is a stand-in.
#include "tests/qvsata/registration/windows/RegisteredTest.h"
#include "tests/support/windows/RegistryDump.h"

namespace qv::test {
namespace {

using testing::HasSubstr;

TEST_F(RegisteredTest, RegistersTheLibraryAndCompilesEachFile) {
    const ToolRun run = RunTool({"register"});
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output, "registered " + library_ + "\n");
    EXPECT_EQ(run.exitCode, 0U);
    EXPECT_EQ(LibraryOf(instanceClass), library_);
    EXPECT_EQ(LibraryOf(eventClass), library_);
    EXPECT_EQ(Compiled(),
              "cim_schema.mof\ncim_schema_later.mof\nqv_computer_system.mof\n"
              "qv_group_collection.mof\nqv_software_identity.mof\nqvwmisata.mof\n"
              "qvwmisata_provider.mof\n");
}

TEST_F(RegisteredTest, ServesARecordingThroughTheRegisteredClasses) {
    const std::string host = SourceFile("hosts/ahci-desktop.json");
    EXPECT_EQ(RunTool({"disks", "--host", host, "--registered"}).exitCode, 1U);
    ASSERT_EQ(RunTool({"register"}).exitCode, 0U);
    const ToolRun run = RunTool({"disks", "--host", host, "--registered"});
    EXPECT_EQ(run.exitCode, 0U) << run.errors;
    EXPECT_EQ(run.output, RunTool({"disks", "--host", host}).output);
}

TEST_F(RegisteredTest, LeavesNoKeyWhenItIsUnregistered) {
    const RegistryDump before = DumpOf(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Classes");
    ASSERT_EQ(RunTool({"register"}).exitCode, 0U);
    Compiled();
    const ToolRun run = RunTool({"unregister"});
    EXPECT_EQ(run.exitCode, 0U) << run.errors;
    EXPECT_EQ(run.output, "unregistered " + library_ + "\n");
    EXPECT_EQ(Compiled(), "qvwmisata_remove.mof\n");
    EXPECT_EQ(DumpOf(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Classes"), before);
}

TEST_F(RegisteredTest, CanBeUnregisteredWhenNothingIs) {
    const ToolRun run = RunTool({"unregister"});
    EXPECT_EQ(run.exitCode, 0U) << run.errors;
}

TEST_F(RegisteredTest, LeavesNothingOfAFailedRegistration) {
    Refuse(L"qvwmisata_provider.mof");
    const ToolRun run = RunTool({"register"});
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "qvsata: compiling " + Shown(products_ / "qvwmisata_provider.mof") +
                              ": mofcomp.exe ended with 1 (refused by the management service), "
                              "WBEM_E_ACCESS_DENIED (0x80041003): Compiler returned error "
                              "0x80041003\n");
    EXPECT_THAT(Compiled(), testing::EndsWith("qvwmisata_provider.mof\nqvwmisata_remove.mof\n"));
    EXPECT_EQ(LibraryOf(instanceClass), "none");
}

TEST_F(RegisteredTest, LeavesTheFormerLibraryOfAFailedRegistration) {
    ASSERT_EQ(RunTool({"register"}).exitCode, 0U);
    const std::filesystem::path other = folder_.File(L"QVWMISATA.dll");
    std::filesystem::copy_file(QV_LIBRARY, other);
    Refuse(L"qvwmisata.mof");
    EXPECT_EQ(RunTool({"register", "--dll", Shown(other)}).exitCode, 1U);
    EXPECT_EQ(LibraryOf(instanceClass), library_);
    EXPECT_EQ(LibraryOf(eventClass), library_);
    EXPECT_THAT(Compiled(), testing::Not(HasSubstr("qvwmisata_remove.mof")));
}

TEST_F(RegisteredTest, SaysWhyALibraryCannotBeLoaded) {
    const std::filesystem::path text = folder_.File(L"text.dll");
    std::ofstream(text) << "no library";
    const ToolRun run = RunTool({"register", "--dll", Shown(text)});
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_THAT(run.errors, HasSubstr("qvsata: registering " + Shown(text) + ": "));
    EXPECT_THAT(run.errors, HasSubstr(": error 193: "));
    EXPECT_EQ(Compiled(), "");
}

TEST_F(RegisteredTest, IsRefusedWhileAFileIsMissing) {
    const ToolRun run = RunTool({"register", "--dll", R"(C:\none.dll)"});
    EXPECT_EQ(run.exitCode, 1U);
    EXPECT_EQ(run.errors, "qvsata: C:\\none.dll: not found\n");
}

}  // namespace
}  // namespace qv::test
