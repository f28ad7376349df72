// qvsata doctor on a management service that has the provider's namespace: a stand-in, as the
// machine's own locator returns it, on a recorded host.
#include <windows.h>

#include <accctrl.h>
#include <sddl.h>
#include <wbemcli.h>

#include <map>

#include "SourceTree.h"
#include "catalogue/Classes.h"
#include "nlohmann/json.hpp"
#include "qvsata/cim/Snapshot.h"
#include "qvsata/doctor/NamespaceFacts.h"
#include "qvsata/hosting/ComApartment.h"
#include "qvsata/hosting/ManagementHost.h"
#include "qvsata/hosting/substitutes/ImportPatch.h"
#include "qvsata/hosting/substitutes/Locator.h"
#include "qvsata/hosting/substitutes/ServedClass.h"
#include "qvsata/service/RecordedMachine.h"
#include "qvsata/service/StatedInstances.h"
#include "source/Namespaces.h"
#include "tests/qvsata/commands/RunHere.h"
#include "tests/qvsata/registration/windows/RegisteredTest.h"
#include "tests/support/windows/RecordedOptions.h"

namespace qv::test {
namespace {

using service::Answer;
using service::CimType;
using service::ObjectProperty;

/// Sets a security descriptor, which the caller frees with LocalFree; returns its size.
ULONG MakeDescriptor(const wchar_t* sddl, PSECURITY_DESCRIPTOR* descriptor) {
    ULONG size = 0;
    ConvertStringSecurityDescriptorToSecurityDescriptorW(sddl, SDDL_REVISION_1, descriptor, &size);
    return size;
}

// The owner of and the rights on the folders, the library, the tool beside it and the drive: Wine
// knows no folder that only administrators may change.
const wchar_t* folderRights = nullptr;
const wchar_t* libraryRights = nullptr;
const wchar_t* toolRights = nullptr;
const wchar_t* driveRights = nullptr;

const wchar_t* RightsOfPlace(std::wstring_view path) {
    return path.ends_with(L".dll")   ? libraryRights
           : path.ends_with(L".exe") ? toolRights
           : path.ends_with(L":\\")  ? driveRights
                                     : folderRights;
}

DWORD WINAPI GetFileRights(const wchar_t* path, SE_OBJECT_TYPE, SECURITY_INFORMATION, PSID* owner,
                           PSID*, PACL*, PACL*, PSECURITY_DESCRIPTOR* descriptor) {
    MakeDescriptor(RightsOfPlace(path), descriptor);
    BOOL isDefault = FALSE;
    GetSecurityDescriptorOwner(*descriptor, owner, &isDefault);
    return ERROR_SUCCESS;
}

/// Returns an object that holds a security descriptor as the service does.
service::ObjectPtr NamespaceWith(const wchar_t* sddl) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    const ULONG size = MakeDescriptor(sddl, &descriptor);
    const auto* const bytes = static_cast<const BYTE*>(descriptor);
    const std::vector<std::int64_t> numbers(bytes, bytes + size);
    LocalFree(descriptor);
    return std::make_shared<service::Snapshot>(std::vector<ObjectProperty>{
        {"SECURITY_DESCRIPTOR", CimType::uint8, true, numbers, false, false}});
}

/// The provider's namespace as a management service has it.
class InstalledNamespaceStandIn final : public service::Services {
public:
    std::map<std::string, Answer, std::less<>> published;  ///< the instances, by class
    std::map<std::string, Answer, std::less<>> gotten;     ///< by path, if not as shipped

    Answer Get(std::string_view path) const override {
        const auto found = gotten.find(path);
        return found == gotten.end() ? namespace_->Get(path) : found->second;
    }
    Answer Enumerate(std::string_view className) const override {
        const auto found = published.find(className);
        return found == published.end() ? stated_.Enumerate(shipped_->resolved.Find(className))
                                        : found->second;
    }
    Answer Query(std::string_view wql) const override { return namespace_->Query(wql); }

private:
    std::shared_ptr<const service::PublishedClasses> shipped_ =
        doctor::ReadShipped(QV_SOURCE_DIR "/mof");
    std::shared_ptr<const service::Namespace> namespace_ = service::OpenPublished(*shipped_, "N");
    service::StatedInstances stated_{shipped_->repository, shipped_->resolved};
};

/// A registered library, and a machine whose management service has its namespace and publishes
/// what the library does.
class InstalledService : public RegisteredTest {
protected:
    void SetUp() override {
        RegisteredTest::SetUp();
        libraryRights = folderRights = toolRights = driveRights =
            L"O:BAD:(A;;FA;;;BA)(A;;FA;;;SY)(A;;0x1200A9;;;BU)";
        const ToolRun registration = RunTool({"register"});
        ASSERT_EQ(registration.exitCode, 0U) << registration.errors;
        const service::ManagementHost host(RecordedOptions(nullptr, QV_LIBRARY));
        for (const PublishedClass& one : PublishedClasses()) {
            installed_->published[std::string(one.name)] = host.Published().Enumerate(one.name);
        }
        installed_->gotten["__ThisNamespace=@"] = {
            Status::noError, "", {NamespaceWith(L"O:BAD:(A;CI;0x6003F;;;BA)(A;CI;0x20001;;;AU)")}};
    }

    static Ending Doctor() {
        return RunHere({"doctor", "--format", "json", "--mof", QV_SOURCE_DIR "/mof"});
    }

    /// Returns the links that are not OK: "NAME: text". What can never be checked is left out.
    static std::vector<std::string> Troubles() {
        std::vector<std::string> troubles;
        const auto document = nlohmann::json::parse(Doctor().output);
        for (const auto& link : document["links"]) {
            const std::string name = link["name"];
            if (link["state"] != "OK" && name != "sources, hosting accounts") {
                troubles.push_back(name + ": " + link["text"].get<std::string>());
            }
        }
        return troubles;
    }

    const std::shared_ptr<InstalledNamespaceStandIn> installed_ =
        std::make_shared<InstalledNamespaceStandIn>();

private:
    service::Connection Connect(std::string_view nameSpace) const {
        if (service::IsSameNamespace(nameSpace, providerNamespace)) {
            return {Status::noError, installed_};
        }
        return recorded_(nameSpace);
    }

    const service::ComApartment apartment_;
    const service::ImportPatch folders_{
        GetModuleHandleW(nullptr), "GetNamedSecurityInfoW",
        reinterpret_cast<service::ImportPatch::Function>(&GetFileRights)};
    const service::Connector recorded_ =
        service::ConnectRecorded(ShippedRecording("hosts/ahci-desktop.json"));
    const service::ServedClass locator_{
        CLSID_WbemLocator, [this](REFIID iid, void** object) {
            const auto connect = [this](std::string_view nameSpace) { return Connect(nameSpace); };
            return windows::MakeObject<service::Locator>(connect)->QueryInterface(iid, object);
        }};
};

TEST_F(InstalledService, IsWholeAndAnswersAsTheHostedLibrary) {
    EXPECT_THAT(Troubles(), testing::IsEmpty());
    EXPECT_EQ(Doctor().exitCode, 0);
}

TEST_F(InstalledService, LiesInAFolderThatEveryoneMayChange) {
    folderRights = L"O:BAD:(A;;FA;;;BA)(A;;0x1301BF;;;WD)";
    EXPECT_THAT(Troubles(), testing::ElementsAre(testing::StartsWith(
                                "library folder: others than administrators can change ")));
    EXPECT_EQ(Doctor().exitCode, 4);
}

TEST_F(InstalledService, LiesInAFolderOfAUser) {
    folderRights = L"O:BUD:(A;;FA;;;BA)(A;;0x1200A9;;;BU)";
    EXPECT_THAT(Troubles(), testing::ElementsAre(testing::EndsWith(" (owner)")));
}

TEST_F(InstalledService, HasALibraryThatEveryoneMayChange) {
    libraryRights = L"O:BAD:(A;;FA;;;BA)(A;;0x1301BF;;;WD)";
    EXPECT_THAT(Troubles(), testing::ElementsAre(testing::HasSubstr("QVWMISATA.dll, and so run ")));
}

TEST_F(InstalledService, LiesInAFolderThatItsHostCannotRead) {
    folderRights = L"O:BAD:(A;;FA;;;BA)(A;;FA;;;SY)";
    EXPECT_THAT(
        Troubles(),
        testing::ElementsAre(testing::StartsWith("library folder: NETWORK SERVICE cannot read ")));
}

TEST_F(InstalledService, LiesInAFolderThatIsDeniedToItsHost) {
    folderRights = L"O:BAD:(D;;FR;;;NS)(A;;FA;;;BA)(A;;0x1200A9;;;BU)";
    EXPECT_THAT(
        Troubles(),
        testing::ElementsAre(testing::StartsWith("library folder: NETWORK SERVICE cannot read ")));
}

TEST_F(InstalledService, HasAProgramThatEveryoneMayChange) {
    toolRights = L"O:BAD:(A;;FA;;;BA)(A;;0x1301BF;;;WD)";
    EXPECT_THAT(Troubles(), testing::ElementsAre(testing::HasSubstr(".exe, and so run ")));
}

TEST_F(InstalledService, LiesOnADriveWhoseFoldersEveryoneMayReplace) {
    driveRights = L"O:BAD:(A;;FA;;;BA)(A;;0x1200E9;;;WD)";
    EXPECT_THAT(Troubles(), testing::ElementsAre(testing::StartsWith(
                                "library folder: others than administrators can rename ")));
}

TEST_F(InstalledService, LacksAClass) {
    installed_->gotten["QV_SATADiskDrive"] = {Status::notFound, "", {}};
    EXPECT_THAT(Troubles(), testing::ElementsAre("class definitions: QV_SATADiskDrive: not found "
                                                 "(0x80041002)"));
}

TEST_F(InstalledService, LacksTheRegistrationOfAProvider) {
    installed_->published["__EventProviderRegistration"] = {};
    EXPECT_THAT(Troubles(), testing::ElementsAre(
                                "provider registrations: QVWMISATA_EventProv is not registered "
                                "with the management service"));
}

TEST_F(InstalledService, MayBeWrittenByEveryone) {
    installed_->gotten["__ThisNamespace=@"] = {
        Status::noError, "", {NamespaceWith(L"O:BAD:(A;CI;0x6003F;;;BA)(A;CI;0x1F;;;WD)")}};
    EXPECT_THAT(Troubles(),
                testing::ElementsAre(testing::StartsWith(
                    "namespace rights: others than administrators can write to root\\QVQ: ")));
}

TEST_F(InstalledService, DoesNotLoadTheProvider) {
    installed_->published["QV_SATAStorageCollection"] = {Status{0x80041013}, "", {}};
    EXPECT_THAT(Troubles(), testing::ElementsAre("installed answers: QV_SATAStorageCollection: "
                                                 "WBEM_E_PROVIDER_LOAD_FAILURE (0x80041013)"));
}

TEST_F(InstalledService, LacksADisk) {
    installed_->published["QV_SATADiskDrive"].objects.pop_back();
    EXPECT_THAT(Troubles(), testing::ElementsAre(testing::AllOf(
                                testing::StartsWith("installed answers: QV_SATADiskDrive: "),
                                testing::EndsWith(" is not published"))));
}

}  // namespace
}  // namespace qv::test
