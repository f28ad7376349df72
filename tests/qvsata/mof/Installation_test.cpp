// The shipped files in order, as the MOF compiler reads them, into namespaces that are not empty.

#include <gmock/gmock.h>

#include <array>
#include <fstream>
#include <sstream>

#include "tests/qvsata/mof/ErrorOf.h"
#include "tests/qvsata/mof/ShippedFiles.h"

namespace qv::test {
namespace {

using namespace service;
using testing::Each;
using testing::EndsWith;
using testing::HasSubstr;
using testing::ResultOf;

std::string TextOf(std::string_view name) {
    std::ostringstream text;
    text << std::ifstream(ShippedFile(name), std::ios::binary).rdbuf();
    return text.str();
}

/// Returns the message of compiling one shipped file.
std::string Compile(std::string_view name, Namespaces& namespaces) {
    return ErrorOf(TextOf(name), namespaces);
}

std::string Without(std::string text, const std::string& part) {
    const std::size_t at = text.find(part);
    return at == std::string::npos ? "no " + part : text.erase(at, part.size());
}

/// Returns an older common schema, without the properties and the two classes that were added last.
std::string OlderSchema() {
    std::string schema = TextOf("cim_schema.mof");
    schema = Without(schema, "    string IdentityInfoValue[];\n");
    schema = Without(schema, "    string IdentityInfoType[];\n");
    return Without(schema, "    uint16 ElementSoftwareStatus[];\n");
}

TEST(Installation, TakesEveryFileByItself) {
    Namespaces namespaces;
    EXPECT_THAT(
        shippedClassFiles,
        Each(ResultOf([&namespaces](std::string_view name) { return Compile(name, namespaces); },
                      "no error")));
    EXPECT_EQ(Compile(shippedRegistrationFile, namespaces), "no error");
}

TEST(Installation, MayBeRepeated) {
    Namespaces namespaces = Shipped();
    EXPECT_EQ(Compile("qvwmisata.mof", namespaces), "no error");
    EXPECT_EQ(Compile("qvwmisata_provider.mof", namespaces), "no error");
    EXPECT_EQ(namespaces.Find("root\\QVQ")->Instances().size(),
              ShippedRepository().Instances().size());
}

TEST(Installation, StopsAtACommonSchemaThatIsComplete) {
    Namespaces namespaces = Shipped();
    EXPECT_THAT(Compile("cim_schema.mof", namespaces),
                EndsWith(": class CIM_ManagedElement is in the namespace already "
                         "(WBEM_E_ALREADY_EXISTS 0x80041019)"));
}

TEST(Installation, NamesWhatAnOlderCommonSchemaLacks) {
    Namespaces namespaces;
    ReadMof(OlderSchema(), "older.mof", namespaces);
    EXPECT_THAT(Compile("cim_schema.mof", namespaces),
                EndsWith(": class CIM_ManagedElement is in the namespace already, which lacks "
                         "CIM_SoftwareIdentity.IdentityInfoValue, "
                         "CIM_SoftwareIdentity.IdentityInfoType, "
                         "CIM_ElementSoftwareIdentity.ElementSoftwareStatus "
                         "(WBEM_E_ALREADY_EXISTS 0x80041019)"));
}

/// As above, with a class that the published schema declares concrete and ours abstract.
std::string ConcreteSchema() {
    std::string schema = TextOf("cim_schema.mof");
    const std::string part = "Abstract, Description(\"System that can compute.\")";
    return schema.erase(schema.find(part), std::string("Abstract, ").size());
}

TEST(Installation, RefusesACommonSchemaThatIsConcrete) {
    Namespaces namespaces;
    ReadMof(ConcreteSchema(), "published.mof", namespaces);
    EXPECT_THAT(Compile("cim_schema.mof", namespaces),
                HasSubstr("which lacks Abstract of CIM_ComputerSystem (WBEM_E_ALREADY_EXISTS"));
    EXPECT_THAT(Compile("qv_computer_system.mof", namespaces),
                HasSubstr("WBEM_E_CANNOT_BE_ABSTRACT"));
}

TEST(Installation, MakesACommonSchemaAbstractWhenItIsToldTo) {
    Namespaces namespaces;
    ReadMof(ConcreteSchema(), "published.mof", namespaces);
    std::string update = TextOf("cim_schema.mof");
    update.replace(update.find("(\"createonly\")"), 14, "(\"safeupdate\")");
    EXPECT_EQ(ErrorOf(update, namespaces), "no error");
    EXPECT_EQ(Compile("qv_computer_system.mof", namespaces), "no error");
}

TEST(Installation, AddsTheLaterClassesToAnOlderCommonSchema) {
    Namespaces namespaces;
    ReadMof(OlderSchema(), "older.mof", namespaces);
    EXPECT_THAT(Compile("qvwmisata.mof", namespaces), HasSubstr("WBEM_E_INVALID_SUPERCLASS"));
    EXPECT_EQ(Compile("cim_schema_later.mof", namespaces), "no error");
    EXPECT_EQ(Compile("qv_computer_system.mof", namespaces), "no error");
    EXPECT_EQ(Compile("qv_group_collection.mof", namespaces), "no error");
    EXPECT_EQ(Compile("qv_software_identity.mof", namespaces), "no error");
    EXPECT_EQ(Compile("qvwmisata.mof", namespaces), "no error");
}

TEST(Installation, LeavesTheFullerSuperclassOfAnotherProvider) {
    Namespaces namespaces;
    Compile("cim_schema.mof", namespaces);
    ReadMof(R"(#pragma namespace("\\\\.\\root\\QVQ")
               [Abstract] class QV_ComputerSystem : CIM_ComputerSystem { string RackName; };)",
            "other.mof", namespaces);
    EXPECT_THAT(Compile("qv_computer_system.mof", namespaces), HasSubstr("WBEM_E_ALREADY_EXISTS"));
    Compile("cim_schema_later.mof", namespaces);
    Compile("qv_group_collection.mof", namespaces);
    EXPECT_EQ(Compile("qvwmisata.mof", namespaces), "no error");
    EXPECT_EQ(namespaces.Find("root\\QVQ")->Properties("QV_WinComputerSystem").back().get().name,
              "RackName");
}

TEST(Installation, UpgradesAClassThatOtherSoftwareDerivedFrom) {
    Namespaces namespaces = Shipped();
    ReadMof(R"(#pragma namespace("\\\\.\\root\\QVQ")
               [dynamic, provider("X")] class X_Drive : QV_SATADiskDrive { string Owner; };)",
            "other.mof", namespaces);
    std::string upgrade = TextOf("qvwmisata.mof");
    upgrade.insert(upgrade.find("    [Description(\"Revision of the drive's firmware.\")]"),
                   "    [Description(\"New.\")] string Added;\n");
    EXPECT_EQ(ErrorOf(upgrade, namespaces), "no error");
}

}  // namespace
}  // namespace qv::test
