#include "qvsata/cim/ClassRepository.h"

#include <gmock/gmock.h>

#include <stdexcept>

#include "qvsata/mof/MofReader.h"

namespace qv::test {
namespace {

using namespace service;
using testing::ElementsAre;
using testing::IsEmpty;

ClassRepository Read(std::string_view text) {
    Namespaces namespaces;
    ReadMof(text, "a.mof", namespaces);
    return namespaces.Of("root\\default");
}

ClassRepository Family() {
    return Read(
        "[Abstract, Association: ToInstance ToSubclass, Note(\"old\"): ToSubclass] class Top {"
        " string First; [key] Top ref Other; uint16 Code = 7; Top ref Second; };"
        "[Note(\"new\")] class Middle : Top { string Own; };"
        "class Bottom : Middle { [Override(\"Other\")] Bottom ref Other;"
        " [Override(\"Code\"), Description(\"d\")] uint16 Code; string Last; };");
}

std::vector<std::string> Names(const PropertyRefs& properties) {
    std::vector<std::string> names;
    for (const PropertyDefinition& property : properties) {
        names.push_back(property.name);
    }
    return names;
}

TEST(ClassRepository, FindsClassesWithoutRegardToCase) {
    EXPECT_EQ(Family().Find("BOTTOM")->name, "Bottom");
    EXPECT_EQ(Family().Find("Nothing"), nullptr);
    EXPECT_EQ(Family().Find(""), nullptr);
}

TEST(ClassRepository, ListsClassesInTheOrderOfTheirDefinition) {
    const ClassRepository family = Family();
    std::vector<std::string> names;
    for (const ClassDefinition& one : family.Classes()) {
        names.push_back(one.name);
    }
    EXPECT_THAT(names, ElementsAre("Top", "Middle", "Bottom"));
}

TEST(ClassRepository, PutsInheritedPropertiesFirstAndOverridesInTheirPlace) {
    const ClassRepository family = Family();
    EXPECT_THAT(Names(family.Properties("bottom")),
                ElementsAre("First", "Other", "Code", "Second", "Own", "Last"));
    EXPECT_THAT(family.Properties("Nothing"), IsEmpty());
}

TEST(ClassRepository, GivesAnOverrideItsOwnTypeAndTheInheritedKey) {
    const ClassRepository family = Family();
    const PropertyDefinition& other = family.Properties("Bottom").at(1);
    EXPECT_EQ(other.referenceClass, "Bottom");
    EXPECT_TRUE(other.isKey);
    EXPECT_EQ(other.declaringClass, "Top");
}

TEST(ClassRepository, KeepsAnInheritedDefaultValue) {
    const ClassRepository family = Family();
    const PropertyDefinition& code = family.Properties("Bottom").at(2);
    EXPECT_EQ(code.defaultValue, CimValue(std::int64_t{7}));
    EXPECT_NE(FindQualifier(code.qualifiers, "Description"), nullptr);
}

TEST(ClassRepository, NamesTheKeysOfAClass) {
    const ClassRepository family = Family();
    EXPECT_THAT(Names(family.Keys("Bottom")), ElementsAre("Other"));
}

TEST(ClassRepository, ListsAncestorsNearestFirst) {
    EXPECT_THAT(Family().Derivation("Bottom"), ElementsAre("Middle", "Top"));
    EXPECT_THAT(Family().Derivation("Top"), IsEmpty());
    EXPECT_THAT(Family().Derivation("Nothing"), IsEmpty());
}

TEST(ClassRepository, KnowsWhatAClassIs) {
    EXPECT_TRUE(Family().IsA("bottom", "TOP"));
    EXPECT_TRUE(Family().IsA("Top", "Top"));
    EXPECT_FALSE(Family().IsA("Top", "Bottom"));
    EXPECT_FALSE(Family().IsA("Nothing", "Nothing"));
}

TEST(ClassRepository, InheritsOnlyQualifiersThatAreForSubclasses) {
    const ClassRepository family = Family();
    EXPECT_NE(family.ClassQualifier("Bottom", "association"), nullptr);
    EXPECT_EQ(family.ClassQualifier("Bottom", "Abstract"), nullptr);
    EXPECT_NE(family.ClassQualifier("Top", "Abstract"), nullptr);
    EXPECT_EQ(family.ClassQualifier("Middle", "Note")->value, CimValue("new"));
    EXPECT_EQ(family.ClassQualifier("Bottom", "Note")->value, CimValue("old"));
    EXPECT_EQ(family.ClassQualifier("Nothing", "Note"), nullptr);
}

TEST(ClassRepository, RefusesASecondClassOfAName) {
    ClassRepository repository;
    repository.Add(ClassDefinition{"A", "", {}, {}});
    EXPECT_THROW(repository.Add(ClassDefinition{"a", "", {}, {}}), std::invalid_argument);
    EXPECT_THROW(repository.Add(ClassDefinition{"B", "C", {}, {}}), std::invalid_argument);
}

TEST(ClassRepository, RemovesAClassWithItsSubclassesAndInstances) {
    ClassRepository repository = Read(
        "class A { [key] string N; }; class B : A {}; class C {}; instance of B { N = \"1\"; };");
    EXPECT_TRUE(repository.RemoveClass("a"));
    EXPECT_FALSE(repository.RemoveClass("A"));
    EXPECT_EQ(repository.Find("B"), nullptr);
    EXPECT_EQ(repository.Find("C")->name, "C");
    EXPECT_THAT(repository.Instances(), IsEmpty());
}

TEST(ClassRepository, KeepsTheSystemClasses) {
    ClassRepository repository;
    EXPECT_FALSE(repository.RemoveClass("__Event"));
    EXPECT_THAT(repository.Derivation("__ExtrinsicEvent"),
                ElementsAre("__Event", "__IndicationRelated", "__SystemClass"));
    EXPECT_THAT(
        Names(repository.Properties("__ExtendedStatus")),
        ElementsAre("StatusCode", "Description", "Operation", "ParameterInfo", "ProviderName"));
    EXPECT_THAT(Names(repository.Keys("__EventProviderRegistration")), ElementsAre("provider"));
    EXPECT_THAT(repository.Classes(), IsEmpty());
}

TEST(ClassRepository, ReplacesAnInstanceOfTheSameKeys) {
    const ClassRepository repository = Read(
        "class A { [key] string N; string V; };"
        "instance of A { N = \"x\"; V = \"1\"; }; instance of A { N = \"X\"; V = \"2\"; };");
    ASSERT_EQ(repository.Instances().size(), 1U);
    EXPECT_EQ(*repository.Instances().front().get().Find("V"), CimValue("2"));
}

TEST(ClassRepository, KeepsEveryInstanceOfAClassWithoutKeys) {
    ClassRepository repository = Read("class A {};");
    repository.Add(InstanceDefinition{"A", {}});
    repository.Add(InstanceDefinition{"A", {}});
    EXPECT_EQ(repository.Instances().size(), 2U);
}

TEST(ClassRepository, TakesAnInstanceAgainAfterItsClassWasRemoved) {
    ClassRepository repository = Read("class A { [key] string N; }; instance of A { N = \"x\"; };");
    repository.RemoveClass("A");
    EXPECT_FALSE(repository.HasInstance("A.N=\"x\""));
    EXPECT_FALSE(repository.RemoveInstance("A.N=\"x\""));
}

TEST(ClassRepository, ListsInstancesInTheOrderInWhichTheyCame) {
    ClassRepository repository = Read(
        "class A { [key] string N; }; instance of A { N = \"x\"; }; instance of A { N = \"b\"; };"
        "instance of A { N = \"c\"; }; instance of A { N = \"X\"; };");
    repository.RemoveInstance("a.n=\"C\"");
    std::vector<std::string> paths;
    for (const InstanceDefinition& instance : repository.Instances()) {
        paths.push_back(repository.RelativePath(instance));
    }
    EXPECT_THAT(paths, ElementsAre("A.N=\"b\"", "A.N=\"X\""));
}

TEST(ClassRepository, FindsInstancesByTheirRelativePath) {
    const ClassRepository repository =
        Read("class A { [key] string N; }; instance of A { N = \"x\"; };");
    EXPECT_TRUE(repository.HasInstance("a.n=\"X\""));
    EXPECT_FALSE(repository.HasInstance("A.N=\"y\""));
}

TEST(ClassRepository, PutsAClassInThePlaceOfAnother) {
    ClassRepository repository = Read("class A {}; class B : A {};");
    repository.Replace(*Read("class A { string X; };").Find("A"));
    EXPECT_THAT(Names(repository.Properties("B")), ElementsAre("X"));
    EXPECT_EQ(repository.Classes().size(), 2U);
}

TEST(ClassRepository, HandsTheChangeOfAClassDownToAllBelow) {
    ClassRepository repository =
        Read("class Low {}; class High {}; class Middle : High {}; class Bottom : Middle {};");
    repository.Replace(*Read("class Low {}; class High : Low { string X; };").Find("High"));
    EXPECT_THAT(repository.Derivation("Bottom"), ElementsAre("Middle", "High", "Low"));
    EXPECT_THAT(Names(repository.Properties("Bottom")), ElementsAre("X"));
}

TEST(ClassRepository, RelativePathListsKeysInAlphabeticalOrderWithNumbersUnquoted) {
    const ClassRepository repository = Read(
        "class A { [key] string Name; [key] uint16 Code; [key] boolean b; [key] uint64 Big; };"
        "instance of A { Name = \"n\"; Code = 5; b = true; Big = 9; };");
    EXPECT_EQ(repository.RelativePath(repository.Instances().front()),
              R"(A.b=TRUE,Big=9,Code=5,Name="n")");
}

TEST(ClassRepository, RelativePathEscapesQuotesAndBackslashes) {
    const ClassRepository repository =
        Read(R"(class A { [key] string N; }; instance of A { N = "\\\\.\\x \"y\""; };)");
    EXPECT_EQ(repository.RelativePath(repository.Instances().front()), R"(A.N="\\\\.\\x \"y\"")");
}

TEST(ClassRepository, RelativePathIsEmptyWithoutAKeyValue) {
    const ClassRepository repository = Read("class A { [key] string N; };");
    EXPECT_EQ(repository.RelativePath(InstanceDefinition{"A", {}}), "");
}

}  // namespace
}  // namespace qv::test
