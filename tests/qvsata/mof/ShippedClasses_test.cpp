// The shipped class definitions, compared with the published catalogue.
#include <gmock/gmock.h>

#include <map>
#include <set>

#include "tests/qvsata/mof/ShippedFiles.h"
#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {
namespace {

using namespace service;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

using Names = std::vector<std::string>;

const std::string indication = "QV_SATADeviceIndication";

bool IsOurs(const ClassDefinition& definition) {
    return definition.name.starts_with("QV_");
}

bool IsDynamic(const ClassDefinition& definition) {
    return HasQualifier(definition.qualifiers, "dynamic");
}

bool IsAbstract(const ClassDefinition& definition) {
    return HasQualifier(definition.qualifiers, "Abstract");
}

/// Returns the names of the shipped classes that meet a condition.
template <typename Condition>
Names ClassesThat(Condition holds) {
    Names names;
    for (const ClassDefinition& definition : ShippedRepository().Classes()) {
        if (holds(definition)) {
            names.push_back(definition.name);
        }
    }
    return names;
}

Names KeyNames(const std::string& className) {
    Names names;
    for (const PropertyDefinition& key : ShippedRepository().Keys(className)) {
        names.push_back(key.name);
    }
    return names;
}

/// Returns a property's declared type, "uint16[]"; empty if the class lacks the property.
std::string TypeOf(const std::string& className, const std::string& property) {
    for (const PropertyDefinition& one : ShippedRepository().Properties(className)) {
        if (one.name == property) {
            return std::string(CimTypeName(one.type)) + (one.isArray ? "[]" : "");
        }
    }
    return {};
}

class ShippedClassesTest : public testing::TestWithParam<std::string> {};

TEST_P(ShippedClassesTest, DefineAPublishedClassAsDynamic) {
    const ClassDefinition* const definition = ShippedRepository().Find(GetParam());
    ASSERT_NE(definition, nullptr);
    EXPECT_EQ(definition->name, GetParam());
    const Qualifier* const dynamic = FindQualifier(definition->qualifiers, "dynamic");
    ASSERT_NE(dynamic, nullptr);
    EXPECT_TRUE(dynamic->toInstance);
    const Qualifier* const provider = FindQualifier(definition->qualifiers, "provider");
    ASSERT_NE(provider, nullptr);
    EXPECT_EQ(provider->value, CimValue("QVWMISATA_InstProv"));
    EXPECT_TRUE(provider->toInstance);
}

TEST_P(ShippedClassesTest, GiveAPublishedClassAnAbstractParent) {
    const ClassDefinition* const definition = ShippedRepository().Find(GetParam());
    ASSERT_NE(definition, nullptr);
    EXPECT_TRUE(IsAbstract(*ShippedRepository().Find(definition->superclass)));
}

INSTANTIATE_TEST_SUITE_P(EveryClass, ShippedClassesTest, testing::ValuesIn(ExpectedClassNames()),
                         [](const auto& name) { return name.param; });

TEST(ShippedClasses, AreDynamicOnlyWhenTheyArePublished) {
    EXPECT_THAT(ClassesThat(IsDynamic), UnorderedElementsAreArray(ExpectedClassNames()));
}

Names PublishedAssociations() {
    Names names = ExpectedClassNames();
    std::erase_if(names, [](const std::string& name) {
        return ShippedRepository().ClassQualifier(name, "Association") == nullptr;
    });
    return names;
}

TEST(ShippedClasses, AreAssociationsExactlyBehindTheInstanceClasses) {
    EXPECT_EQ(PublishedAssociations(), ExpectedAssociationNames());
}

/// Texts by the class or the property that they describe.
using Texts = std::map<std::string, std::string>;

Texts ExpectedSuperclasses() {
    Texts superclasses;
    for (const ExpectedNode& node : ExpectedHierarchy()) {
        superclasses[node.name] = node.superclass;
    }
    return superclasses;
}

/// Returns the declared superclasses of the classes in `expected`.
Texts DeclaredSuperclasses(const Texts& expected) {
    Texts declared;
    for (const auto& [name, superclass] : expected) {
        const ClassDefinition* const definition = ShippedRepository().Find(name);
        declared[name] = definition == nullptr ? "not defined" : definition->superclass;
    }
    return declared;
}

TEST(ShippedClasses, HaveTheSuperclassesOfTheCatalogue) {
    EXPECT_EQ(DeclaredSuperclasses(ExpectedSuperclasses()), ExpectedSuperclasses());
}

std::set<std::string> AncestorsOfOurs() {
    std::set<std::string> used;
    for (const std::string& name : ClassesThat(IsOurs)) {
        const auto ancestors = ShippedRepository().Derivation(name);
        used.insert(ancestors.begin(), ancestors.end());
    }
    return used;
}

TEST(ShippedClasses, HoldNoSuperclassThatNothingOfOursDerivesFrom) {
    EXPECT_THAT(ClassesThat([used = AncestorsOfOurs()](const ClassDefinition& definition) {
                    return !IsOurs(definition) && !used.contains(definition.name);
                }),
                IsEmpty());
}

/// Returns the properties of all our classes that lack a description, "Class.Property".
Names UndescribedProperties() {
    Names names;
    for (const std::string& name : ClassesThat(IsOurs)) {
        for (const PropertyDefinition& property : ShippedRepository().Find(name)->properties) {
            if (!HasQualifier(property.qualifiers, "Description")) {
                names.push_back(name + '.' + property.name);
            }
        }
    }
    return names;
}

TEST(ShippedClasses, AreDescribedWhereTheyAreOurs) {
    EXPECT_THAT(ClassesThat([](const ClassDefinition& definition) {
                    return IsOurs(definition) &&
                           !HasQualifier(definition.qualifiers, "Description");
                }),
                IsEmpty());
    EXPECT_THAT(UndescribedProperties(), IsEmpty());
}

TEST(ShippedClasses, AreAbstractUnlessTheyHaveInstancesOrAreIndications) {
    EXPECT_EQ(ClassesThat(IsAbstract), ClassesThat([](const ClassDefinition& definition) {
                  return !IsDynamic(definition) &&
                         !ShippedRepository().IsA(definition.name, "__Event");
              }));
}

TEST(ShippedClasses, AreConcreteBelowTheEventClass) {
    EXPECT_THAT(ClassesThat([](const ClassDefinition& definition) {
                    return !IsAbstract(definition) &&
                           ShippedRepository().IsA(definition.name, "__ExtrinsicEvent");
                }),
                testing::IsSupersetOf({"CIM_Indication", "CIM_ProcessIndication",
                                       "CIM_AlertIndication", "QV_SATADeviceIndication"}));
}

/// The sorted names of each class's keys.
using KeysByClass = std::map<std::string, std::set<std::string>>;

KeysByClass PublishedKeys() {
    KeysByClass keys;
    for (const ExpectedInstanceClass& expected : ExpectedInstanceClasses()) {
        for (const ExpectedProperty& property : expected.tables.front().properties) {
            if (property.put.key) {
                keys[expected.name].insert(property.put.name);
            }
        }
    }
    for (const ExpectedAssociation& expected : ExpectedAssociations()) {
        for (const ExpectedEnd& end : expected.ends) {
            keys[expected.name].insert(end.role);
        }
    }
    return keys;
}

KeysByClass DeclaredKeys() {
    KeysByClass keys;
    for (const std::string& className : ExpectedClassNames()) {
        const Names names = KeyNames(className);
        keys[className].insert(names.begin(), names.end());
    }
    return keys;
}

TEST(ShippedClasses, HaveTheKeysThatArePublished) {
    EXPECT_EQ(DeclaredKeys(), PublishedKeys());
}

TEST(ShippedClasses, HaveAnIndicationWithoutKeys) {
    ASSERT_NE(ShippedRepository().Find(indication), nullptr);
    EXPECT_THAT(KeyNames(indication), IsEmpty());
}

/// Returns the declared types of the properties in `expected`, "Class.Property".
Texts DeclaredTypes(const Texts& expected) {
    Texts declared;
    for (const auto& [path, type] : expected) {
        const std::size_t point = path.find('.');
        declared[path] = TypeOf(path.substr(0, point), path.substr(point + 1));
    }
    return declared;
}

Texts PublishedTypes() {
    Texts types;
    for (const ExpectedInstanceClass& one : ExpectedInstanceClasses()) {
        for (const ExpectedTable& table : one.tables) {
            for (const ExpectedProperty& property : table.properties) {
                types[one.name + '.' + property.put.name] = property.mofType;
            }
        }
    }
    for (const ExpectedAssociation& one : ExpectedAssociations()) {
        if (one.added) {
            types[one.name + '.' + one.added->put.name] = one.added->mofType;
        }
    }
    return types;
}

TEST(ShippedClasses, HaveEveryPropertyThatIsPublished) {
    EXPECT_EQ(DeclaredTypes(PublishedTypes()), PublishedTypes());
}

Texts IndicatedTypes() {
    Texts types;
    for (const ExpectedEventProperty& property : ExpectedEventProperties()) {
        types[indication + '.' + property.name] = property.mofType;
    }
    return types;
}

TEST(ShippedClasses, HaveEveryPropertyOfTheIndication) {
    EXPECT_EQ(DeclaredTypes(IndicatedTypes()), IndicatedTypes());
}

TEST(ShippedClasses, HaveAnIndicationThatIsAnEvent) {
    EXPECT_THAT(ShippedRepository().Derivation("QV_SATADeviceIndication"),
                testing::ElementsAre("CIM_AlertIndication", "CIM_ProcessIndication",
                                     "CIM_Indication", "__ExtrinsicEvent", "__Event",
                                     "__IndicationRelated", "__SystemClass"));
    EXPECT_FALSE(
        HasQualifier(ShippedRepository().Find("QV_SATADeviceIndication")->qualifiers, "dynamic"));
}

}  // namespace
}  // namespace qv::test
