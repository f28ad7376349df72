#include "qvsata/mof/MofReader.h"

#include <gmock/gmock.h>

#include "tests/qvsata/mof/ShippedFiles.h"

namespace qv::test {
namespace {

using namespace service;
using testing::ElementsAre;

/// Returns the repository of root\default after one text.
ClassRepository Read(std::string_view text) {
    Namespaces namespaces;
    ReadMof(text, "a.mof", namespaces);
    return namespaces.Of("root\\default");
}

PropertyDefinition Property(std::string_view declaration) {
    return Read("class A { " + std::string(declaration) + " };").Find("A")->properties.at(0);
}

TEST(MofReader, KeepsAClassWithItsSuperclassAndQualifiers) {
    const ClassRepository repository = Read(
        "[Abstract] class A {}; [Abstract, Description(\"a \" \"b\"), Version(3)] class B : A {};");
    const ClassDefinition& b = *repository.Find("b");
    EXPECT_EQ(b.name, "B");
    EXPECT_EQ(b.superclass, "A");
    EXPECT_EQ(FindQualifier(b.qualifiers, "description")->value, CimValue("a b"));
    EXPECT_EQ(FindQualifier(b.qualifiers, "version")->value, CimValue(std::int64_t{3}));
    EXPECT_TRUE(HasQualifier(b.qualifiers, "ABSTRACT"));
}

TEST(MofReader, KeepsTheFlavorsOfQualifiers) {
    const ClassRepository repository = Read(
        "[Association: ToInstance ToSubclass, dynamic: ToInstance, provider(\"X\"): ToInstance,"
        " Abstract: Restricted] class A { A ref X; A ref Y; };");
    const auto& qualifiers = repository.Find("A")->qualifiers;
    EXPECT_TRUE(FindQualifier(qualifiers, "Association")->toInstance);
    EXPECT_TRUE(FindQualifier(qualifiers, "Association")->toSubclass);
    EXPECT_TRUE(FindQualifier(qualifiers, "dynamic")->toInstance);
    EXPECT_FALSE(FindQualifier(qualifiers, "dynamic")->toSubclass);
    EXPECT_EQ(FindQualifier(qualifiers, "provider")->value, CimValue("X"));
    EXPECT_FALSE(FindQualifier(qualifiers, "Abstract")->toInstance);
}

TEST(MofReader, KeepsArraysInQualifiers) {
    const auto property = Property("[ValueMap{\"1\", \"2\"}, Codes({1, -2})] uint16 X;");
    EXPECT_EQ(FindQualifier(property.qualifiers, "ValueMap")->value,
              CimValue(std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(FindQualifier(property.qualifiers, "Codes")->value,
              CimValue(std::vector<std::int64_t>{1, -2}));
}

std::vector<CimType> TypesOf(const ClassDefinition& definition) {
    std::vector<CimType> types;
    for (const PropertyDefinition& property : definition.properties) {
        types.push_back(property.type);
    }
    return types;
}

TEST(MofReader, KnowsEveryTypeWithoutRegardToCase) {
    const ClassRepository repository = Read(
        "class A { sint8 a; UINT8 b; sint16 c; uint16 d; sint32 e; uint32 f; sint64 g; uint64 h;"
        " real32 i; real64 j; String k; boolean l; datetime m; char16 n; A ref o; object p; };");
    EXPECT_THAT(
        TypesOf(*repository.Find("A")),
        ElementsAre(CimType::sint8, CimType::uint8, CimType::sint16, CimType::uint16,
                    CimType::sint32, CimType::uint32, CimType::sint64, CimType::uint64,
                    CimType::real32, CimType::real64, CimType::string, CimType::boolean,
                    CimType::datetime, CimType::char16, CimType::reference, CimType::object));
}

TEST(MofReader, MarksArraysKeysAndReferences) {
    EXPECT_TRUE(Property("uint16 X[];").isArray);
    EXPECT_TRUE(Property("uint16 X[4];").isArray);
    EXPECT_FALSE(Property("uint16 X;").isArray);
    EXPECT_TRUE(Property("[key] string X;").isKey);
    EXPECT_TRUE(Property("[Key(TRUE)] string X;").isKey);
    EXPECT_EQ(Property("A REF X;").referenceClass, "A");
    EXPECT_EQ(Property("string X;").referenceClass, "");
    EXPECT_EQ(Property("string X;").declaringClass, "A");
}

TEST(MofReader, KeepsDefaultValuesInTheFormOfTheirType) {
    EXPECT_EQ(Property("string X;").defaultValue, CimValue());
    EXPECT_EQ(Property("string X = NULL;").defaultValue, CimValue());
    EXPECT_EQ(Property("string X = \"a\" \"b\";").defaultValue, CimValue("ab"));
    EXPECT_EQ(Property("boolean X = True;").defaultValue, CimValue(true));
    EXPECT_EQ(Property("sint32 X = -0x10;").defaultValue, CimValue(std::int64_t{-16}));
    EXPECT_EQ(Property("uint64 X = 18446744073709551615;").defaultValue,
              CimValue("18446744073709551615"));
    EXPECT_EQ(Property("sint64 X = -9223372036854775808;").defaultValue,
              CimValue("-9223372036854775808"));
    EXPECT_EQ(Property("real64 X = 2;").defaultValue, CimValue(2.0));
    EXPECT_EQ(Property("char16 X = 'A';").defaultValue, CimValue(std::int64_t{65}));
    EXPECT_EQ(Property("datetime X = \"20260102030405.000000-300\";").defaultValue,
              CimValue("20260102030405.000000-300"));
    EXPECT_EQ(Property("uint16 X[] = {1, 2};").defaultValue,
              CimValue(std::vector<std::int64_t>{1, 2}));
    EXPECT_EQ(Property("uint64 X[] = {1};").defaultValue, CimValue(std::vector<std::string>{"1"}));
    EXPECT_EQ(Property("boolean X[] = {true, false};").defaultValue,
              CimValue(std::vector<bool>{true, false}));
    EXPECT_EQ(Property("real32 X[] = {0.5};").defaultValue, CimValue(std::vector<double>{0.5}));
    EXPECT_EQ(Property("string X[] = {};").defaultValue, CimValue(std::vector<std::string>{}));
}

TEST(MofReader, AcceptsQualifierDeclarationsMethodsAndPragmasWithoutEffect) {
    const ClassRepository repository = Read(
        "#pragma autorecover\n#pragma locale(\"en_US\")\n"
        "Qualifier Abstract : boolean = false, Scope(class, association), Flavor(Restricted);\n"
        "class A { [Description(\"f(x)\")] uint32 Do([IN] uint16 X, [OUT] string Y[]); string Z; "
        "};");
    ASSERT_EQ(repository.Find("A")->properties.size(), 1U);
    EXPECT_EQ(repository.Find("A")->properties[0].name, "Z");
}

TEST(MofReader, PutsClassesIntoTheNamespaceInForce) {
    Namespaces namespaces;
    ReadMof(
        "class A {};\n#pragma namespace(\"\\\\\\\\.\\\\root\\\\QVQ\")\nclass B {};\n"
        "#pragma namespace(\"root/cimv2\")\nclass A {};",
        "a.mof", namespaces);
    EXPECT_NE(namespaces.Find("root\\default")->Find("A"), nullptr);
    EXPECT_NE(namespaces.Find("ROOT\\qvq")->Find("B"), nullptr);
    EXPECT_EQ(namespaces.Find("root\\QVQ")->Find("A"), nullptr);
    EXPECT_NE(namespaces.Find("//server/root/CIMV2/")->Find("A"), nullptr);
    EXPECT_EQ(namespaces.Find("root\\wmi"), nullptr);
}

TEST(MofReader, StartsEveryFileInTheDefaultNamespace) {
    Namespaces namespaces;
    const std::array files{MofSource{"a.mof", "#pragma namespace(\"root\\\\X\") class A {};"},
                           MofSource{"b.mof", "class B {};"}};
    ReadMof(files, namespaces);
    EXPECT_NE(namespaces.Find("root\\default")->Find("B"), nullptr);
}

TEST(MofReader, KeepsInstancesWithTheValuesTheyState) {
    const ClassRepository repository = Read(
        "class A { [key] string Name; uint16 Codes[]; boolean On; };"
        "instance of a { name = \"n\"; Codes = {1, 2}; };");
    ASSERT_EQ(repository.Instances().size(), 1U);
    const InstanceDefinition& instance = repository.Instances().front();
    EXPECT_EQ(instance.className, "A");
    EXPECT_EQ(*instance.Find("NAME"), CimValue("n"));
    EXPECT_EQ(*instance.Find("Codes"), CimValue(std::vector<std::int64_t>{1, 2}));
    EXPECT_EQ(instance.Find("On"), nullptr);
}

TEST(MofReader, ReplacesAnAliasByTheRelativePathOfItsInstance) {
    const ClassRepository repository = Read(
        "instance of __Win32Provider as $P { Name = \"X\"; CLSID = \"{0}\"; };"
        "instance of __InstanceProviderRegistration { provider = $P; SupportsGet = TRUE; };");
    EXPECT_EQ(*repository.Instances().back().get().Find("Provider"),
              CimValue("__Win32Provider.Name=\"X\""));
}

TEST(MofReader, TakesTheSystemClassesAsBuiltIn) {
    const ClassRepository repository = Read(
        "[NamespaceSecuritySDDL(\"O:BA\")] instance of __Namespace { Name = \"QVQ\"; };"
        "class A : __ExtrinsicEvent { string B; };");
    EXPECT_TRUE(repository.IsA("A", "__Event"));
    EXPECT_EQ(repository.Classes().size(), 1U);
}

TEST(MofReader, LetsAReferenceNameAClassThatFollows) {
    Namespaces namespaces;
    const std::array files{MofSource{"a.mof",
                                     "class A { [key] B ref X; [key] C ref Y; };"
                                     "class B {};"},
                           MofSource{"b.mof", "class C {};"}};
    ReadMof(files, namespaces);
    EXPECT_EQ(namespaces.Of("root\\default").Keys("A").size(), 2U);
}

TEST(MofReader, LetsAPropertyBecomeAKeyWhereNoKeyIsInherited) {
    const ClassRepository repository =
        Read("class A { string Name; }; class B : A { [key, Override(\"Name\")] string Name; };");
    EXPECT_EQ(repository.Keys("A").size(), 0U);
    EXPECT_EQ(repository.Keys("B").size(), 1U);
}

TEST(MofReader, BuildsOnWhatEarlierReadsPutThere) {
    Namespaces namespaces;
    ReadMof("class A {};", "a.mof", namespaces);
    ReadMof("class B : A {};", "b.mof", namespaces);
    EXPECT_TRUE(namespaces.Of("root\\default").IsA("B", "A"));
}

TEST(MofReader, DeletesClassesAndInstances) {
    const ClassRepository repository = Read(
        "class A { [key] string Name; }; class B : A {}; class C { [key] string Name; };"
        "instance of B { Name = \"b\"; }; instance of C { Name = \"1\"; };"
        "instance of C { Name = \"2\"; };\n"
        "#pragma deleteclass(\"a\", nofail)\n"
        "#pragma deleteclass(\"Absent\", NOFAIL)\n"
        "#pragma deleteinstance(\"c.name=\\\"1\\\"\", fail)\n"
        "#pragma deleteinstance(\"C.Name=\\\"9\\\"\", nofail)");
    EXPECT_EQ(repository.Find("A"), nullptr);
    EXPECT_EQ(repository.Find("B"), nullptr);
    ASSERT_EQ(repository.Instances().size(), 1U);
    EXPECT_EQ(*repository.Instances().front().get().Find("Name"), CimValue("2"));
}

TEST(MofReader, ReadsFilesFromDisk) {
    const std::array files{ShippedFile("cim_schema.mof")};
    Namespaces namespaces;
    ReadMofFiles(files, namespaces);
    EXPECT_NE(namespaces.Find("root\\QVQ")->Find("CIM_ManagedElement"), nullptr);
}

}  // namespace
}  // namespace qv::test
