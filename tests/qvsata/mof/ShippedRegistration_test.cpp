// The registration and removal of the providers by the shipped files.
#include <gmock/gmock.h>

#include <array>
#include <fstream>
#include <sstream>

#include "tests/qvsata/mof/ShippedFiles.h"
#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {
namespace {

using namespace service;
using testing::Each;
using testing::IsEmpty;
using testing::IsNull;
using testing::ResultOf;

/// Returns the instance with that relative path; empty if it is missing.
InstanceDefinition Registered(const std::string& relativePath) {
    for (const InstanceDefinition& instance : ShippedRepository().Instances()) {
        if (ShippedRepository().RelativePath(instance) == relativePath) {
            return instance;
        }
    }
    return {};
}

void ExpectValue(const InstanceDefinition& instance, std::string_view property, CimValue value) {
    const CimValue* const found = instance.Find(property);
    ASSERT_NE(found, nullptr) << property;
    EXPECT_EQ(*found, value) << property;
}

TEST(ShippedRegistration, CreatesTheNamespaceBeforeItIsUsed) {
    const ClassRepository* const root = Shipped().Find("root");
    ASSERT_NE(root, nullptr);
    ASSERT_EQ(root->Instances().size(), 1U);
    EXPECT_EQ(root->RelativePath(root->Instances().front()), "__Namespace.Name=\"QVQ\"");
}

// The reader keeps no qualifiers of instances. P: the rights on root are not inherited. 0x6003F:
// all rights; 0x20001: enable and read the rights.
TEST(ShippedRegistration, LetsAdministratorsWriteAndOtherUsersRead) {
    std::ostringstream text;
    text << std::ifstream(QV_SOURCE_DIR "/mof/qvwmisata_provider.mof").rdbuf();
    EXPECT_THAT(text.str(),
                testing::HasSubstr("[NamespaceSecuritySDDL(\"O:BAG:BAD:P(A;CI;0x6003F;;;BA)"
                                   "(A;CI;0x6003F;;;SY)(A;CI;0x20001;;;AU)\")]\n"
                                   "instance of __Namespace\n"));
}

TEST(ShippedRegistration, PutsNothingIntoTheDefaultNamespace) {
    EXPECT_EQ(Shipped().Find("root\\default"), nullptr);
}

TEST(ShippedRegistration, NamesTheClassIdsOfTheLibrary) {
    ExpectValue(Registered("__Win32Provider.Name=\"QVWMISATA_InstProv\""), "CLSID",
                "{3F6A2C1E-5B7D-4E90-A1C3-7D2E9F4B8A06}");
    ExpectValue(Registered("__Win32Provider.Name=\"QVWMISATA_EventProv\""), "CLSID",
                "{9C4E7B21-0D3A-4F6B-8E15-2A9C6D3F7B40}");
}

TEST(ShippedRegistration, RegistersTheInstanceProviderAsOneThatImpersonates) {
    const auto provider = Registered("__Win32Provider.Name=\"QVWMISATA_InstProv\"");
    ExpectValue(provider, "HostingModel", "NetworkServiceHost:QVWMISATA");
    ExpectValue(provider, "ImpersonationLevel", std::int64_t{1});
    ExpectValue(provider, "PerUserInitialization", true);
    ExpectValue(provider, "Pure", true);
}

TEST(ShippedRegistration, HostsTheEventProviderWhereItsSourceAnswers) {
    const auto provider = Registered("__Win32Provider.Name=\"QVWMISATA_EventProv\"");
    ExpectValue(provider, "HostingModel", "LocalSystemHost:QVWMISATA");
    ExpectValue(provider, "ImpersonationLevel", std::int64_t{0});
    ExpectValue(provider, "PerUserInitialization", false);
    ExpectValue(provider, "Pure", true);
}

CimValue ProviderOf(const std::string& className) {
    return ShippedRepository().ClassQualifier(className, "provider")->value;
}

TEST(ShippedRegistration, NamesTheProviderOfTheDynamicClasses) {
    const auto provider = Registered("__Win32Provider.Name=\"QVWMISATA_InstProv\"");
    EXPECT_THAT(ExpectedClassNames(), Each(ResultOf(ProviderOf, *provider.Find("Name"))));
}

TEST(ShippedRegistration, OffersGetAndEnumerationOnly) {
    const auto registration = Registered(
        R"(__InstanceProviderRegistration.provider="__Win32Provider.Name=\"QVWMISATA_InstProv\"")");
    ExpectValue(registration, "SupportsGet", true);
    ExpectValue(registration, "SupportsEnumeration", true);
    ExpectValue(registration, "SupportsPut", false);
    ExpectValue(registration, "SupportsDelete", false);
    EXPECT_EQ(registration.Find("QuerySupportLevels"), nullptr);
}

TEST(ShippedRegistration, OffersTheIndication) {
    const auto registration = Registered(
        R"(__EventProviderRegistration.provider="__Win32Provider.Name=\"QVWMISATA_EventProv\"")");
    ExpectValue(registration, "EventQueryList",
                std::vector<std::string>{"SELECT * FROM QV_SATADeviceIndication"});
}

TEST(ShippedRegistration, RemovalLeavesOnlyWhatOthersMayStandOn) {
    Namespaces namespaces = Shipped();
    const std::array files{ShippedFile("qvwmisata_remove.mof")};
    ReadMofFiles(files, namespaces);
    const ClassRepository& left = *namespaces.Find("root\\QVQ");
    EXPECT_THAT(left.Instances(), IsEmpty());
    EXPECT_THAT(ExpectedClassNames(),
                Each(ResultOf([&left](const auto& name) { return left.Find(name); }, IsNull())));
    EXPECT_EQ(left.Find("QV_SATADeviceIndication"), nullptr);
    EXPECT_NE(left.Find("QV_ComputerSystem"), nullptr);
    EXPECT_NE(left.Find("QV_SoftwareIdentity"), nullptr);
    EXPECT_NE(left.Find("QV_GroupSystemSpecificCollection"), nullptr);
    EXPECT_NE(left.Find("CIM_ManagedElement"), nullptr);
}

TEST(ShippedRegistration, RemovalSkipsWhatIsMissing) {
    Namespaces namespaces;
    const std::array files{ShippedFile("qvwmisata_remove.mof")};
    EXPECT_NO_THROW(ReadMofFiles(files, namespaces));
}

}  // namespace
}  // namespace qv::test
