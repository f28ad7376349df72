// The steps of an installation, on a machine that notes them and fails on request.
#include "qvsata/registration/Registration.h"

#include <gmock/gmock.h>

#include <map>

#include "SourceTree.h"

namespace qv::test {
namespace {

using namespace tool;
using std::filesystem::path;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string library = QV_SOURCE_DIR "/mof/README.md";  // any file that exists

/// Notes what is done: "+FILE" and "-FILE" for a library, the name of a compiled file.
class InstallerStandIn final : public Installer {
public:
    bool isElevated = true;
    path registered;
    std::map<std::string, Compilation> compilations;  ///< others succeed
    std::string whyNotRegistered;
    std::string whyNotUnregistered;
    std::vector<std::string> calls;

    bool IsElevated() const override { return isElevated; }
    path RegisteredLibrary() const override { return registered; }
    std::string Register(const path& file) override {
        calls.push_back("+" + file.string());
        return file == registered ? "" : whyNotRegistered;
    }
    std::string Unregister(const path& file) override {
        calls.push_back("-" + file.string());
        return whyNotUnregistered;
    }
    Compilation CompileMof(const path& file) override {
        calls.push_back(file.filename().string());
        return compilations[calls.back()];
    }
};

class RegistrationSteps : public testing::Test {
protected:
    std::vector<std::string> Install() { return Register(machine, files); }
    std::vector<std::string> Remove() { return Unregister(machine, files); }
    /// The path of a MOF file in an error line.
    static std::string Mof(const std::string& name) { return QV_SOURCE_DIR "/mof/" + name; }

    InstallerStandIn machine;
    ProductFiles files{library, QV_SOURCE_DIR "/mof"};
};

const Compilation denied{{}, 1, "Storing data...\r\nCompiler returned error 0x80041003\r\n"};
const Compilation exists{{}, 1, "Error Number: 0x80041019, Facility: WMI\nexists already\n"};

TEST_F(RegistrationSteps, RegisterTheLibraryAndCompileEachFileInOrder) {
    EXPECT_THAT(Install(), IsEmpty());
    EXPECT_THAT(machine.calls,
                ElementsAre("+" + library, "cim_schema.mof", "cim_schema_later.mof",
                            "qv_computer_system.mof", "qv_group_collection.mof",
                            "qv_software_identity.mof", "qvwmisata.mof", "qvwmisata_provider.mof"));
}

TEST_F(RegistrationSteps, ChangeNothingWithoutAnAdministratorsRights) {
    machine.isElevated = false;
    EXPECT_THAT(Install(), ElementsAre("only an administrator can do this: start it from an "
                                       "elevated command prompt"));
    EXPECT_EQ(Remove(), Install());
    EXPECT_THAT(machine.calls, IsEmpty());
}

TEST_F(RegistrationSteps, ChangeNothingWhileAFileIsMissing) {
    files.library = "/none/QVWMISATA.dll";
    EXPECT_THAT(Install(), ElementsAre("/none/QVWMISATA.dll: not found"));
    EXPECT_THAT(machine.calls, IsEmpty());
}

TEST_F(RegistrationSteps, EndAtALibraryThatCannotRegisterItself) {
    machine.whyNotRegistered = "error 126";
    EXPECT_THAT(Install(), ElementsAre("registering " + library + ": error 126"));
    EXPECT_THAT(machine.calls, ElementsAre("+" + library));
}

TEST_F(RegistrationSteps, KeepSuperclassesOfOthers) {
    machine.compilations["cim_schema.mof"] = exists;
    EXPECT_THAT(Install(), IsEmpty());
}

TEST_F(RegistrationSteps, KeepSuperclassesThatTheExitCodeTellsOf) {
    machine.compilations["cim_schema.mof"] = {{}, 0x80041019, {}};
    EXPECT_THAT(Install(), IsEmpty());
}

TEST_F(RegistrationSteps, AreUndoneFromAFailedSuperclassFileOn) {
    machine.compilations["cim_schema.mof"] = denied;
    EXPECT_THAT(Install(), ElementsAre("compiling " + Mof("cim_schema.mof") +
                                       ": mofcomp.exe ended with 1 (refused by the management "
                                       "service), WBEM_E_ACCESS_DENIED (0x80041003): Compiler "
                                       "returned error 0x80041003"));
    EXPECT_THAT(machine.calls, ElementsAre("+" + library, "cim_schema.mof", "-" + library));
}

TEST_F(RegistrationSteps, TakeExistingSuperclassesForASuccessWhateverElseTheCompilerWrites) {
    machine.compilations["cim_schema.mof"] = {
        "", 1, "error 0X80041019 class exists\r\nCompiler returned error 0x80041001\r\n"};
    EXPECT_THAT(Install(), IsEmpty());
}

TEST_F(RegistrationSteps, DoNotTakeExistingClassesOfOurOwnForASuccess) {
    machine.compilations["qvwmisata.mof"] = exists;
    EXPECT_EQ(Install().size(), 1U);
}

TEST_F(RegistrationSteps, RemoveThePartsOfAFailedFileOfClasses) {
    machine.compilations["qvwmisata.mof"] = denied;
    EXPECT_EQ(Install().size(), 1U);
    EXPECT_THAT(machine.calls, testing::Contains("qvwmisata.mof").Times(1));
    machine.calls.erase(machine.calls.begin(), machine.calls.begin() + 6);
    EXPECT_THAT(machine.calls, ElementsAre("qvwmisata.mof", "qvwmisata_remove.mof", "-" + library));
}

TEST_F(RegistrationSteps, AreAllUndoneWhenTheProvidersCannotBeRegistered) {
    machine.compilations["qvwmisata_provider.mof"] = denied;
    EXPECT_EQ(Install().size(), 1U);
    machine.calls.erase(machine.calls.begin(), machine.calls.begin() + 7);
    EXPECT_THAT(machine.calls,
                ElementsAre("qvwmisata_provider.mof", "qvwmisata_remove.mof", "-" + library));
}

TEST_F(RegistrationSteps, SayWhatCannotBeUndone) {
    machine.compilations["qvwmisata_provider.mof"] = denied;
    machine.compilations["qvwmisata_remove.mof"] = {"mofcomp.exe: error 2", 0, {}};
    machine.whyNotUnregistered = "access denied";
    const std::vector<std::string> lines = Install();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1], "undoing compiling " + Mof("qvwmisata.mof") + ": mofcomp.exe: error 2");
    EXPECT_EQ(lines[2], "undoing registering " + library + ": access denied");
}

TEST_F(RegistrationSteps, LeaveAWorkingRegistrationWhenTheyFail) {
    machine.registered = "/former/QVWMISATA.dll";
    machine.compilations["qvwmisata_provider.mof"] = denied;
    EXPECT_EQ(Install().size(), 1U);
    machine.calls.erase(machine.calls.begin(), machine.calls.begin() + 7);
    EXPECT_THAT(machine.calls, ElementsAre("qvwmisata_provider.mof", "+/former/QVWMISATA.dll"));
}

TEST_F(RegistrationSteps, OfARemovalRemoveTheClassesThenTheLibrary) {
    EXPECT_THAT(Remove(), IsEmpty());
    EXPECT_THAT(machine.calls, ElementsAre("qvwmisata_remove.mof", "-" + library));
}

TEST_F(RegistrationSteps, OfARemovalRemoveTheRegisteredLibrary) {
    machine.registered = library;
    EXPECT_THAT(Remove(), IsEmpty());
    EXPECT_THAT(machine.calls, ElementsAre("qvwmisata_remove.mof", "-" + library));
}

TEST_F(RegistrationSteps, OfARemovalLeaveAnotherLibraryAlone) {
    machine.registered = "/other/QVWMISATA.dll";
    EXPECT_THAT(Remove(), ElementsAre("another library is registered: /other/QVWMISATA.dll; remove "
                                      "it with its own program, or register this one first"));
    EXPECT_THAT(machine.calls, IsEmpty());
}

TEST_F(RegistrationSteps, OfARemovalGoOnAfterAFailureAndReportAll) {
    machine.compilations["qvwmisata_remove.mof"] = {{}, 3, "(12): error SYNTAX 0X80044009\r\n\r\n"};
    machine.whyNotUnregistered = "access denied";
    EXPECT_THAT(Remove(), ElementsAre("compiling " + Mof("qvwmisata_remove.mof") +
                                          ": mofcomp.exe ended with 3 (wrong syntax), 0x80044009: "
                                          "(12): error SYNTAX 0X80044009",
                                      "unregistering " + library + ": access denied"));
}

TEST_F(RegistrationSteps, OfARemovalRemoveTheClassesWithoutTheLibrary) {
    files.library = "/none/QVWMISATA.dll";
    machine.whyNotUnregistered = "error 126";
    EXPECT_THAT(Remove(), ElementsAre("unregistering /none/QVWMISATA.dll: error 126"));
    EXPECT_THAT(machine.calls, testing::Contains("qvwmisata_remove.mof"));
}

TEST_F(RegistrationSteps, OfARemovalTakeAMissingNamespaceForASuccess) {
    machine.compilations["qvwmisata_remove.mof"] = {{}, 1, "Error Number: 0x8004100e\n"};
    EXPECT_THAT(Remove(), IsEmpty());
}

}  // namespace
}  // namespace qv::test
