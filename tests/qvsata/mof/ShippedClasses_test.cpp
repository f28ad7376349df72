// The shipped class definitions, compared with the published catalogue.
#include <gmock/gmock.h>

#include <map>
#include <set>

#include "tests/qvsata/mof/ShippedFiles.h"
#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {
namespace {

using namespace service;
using testing::UnorderedElementsAreArray;

const std::string indication = "QV_SATADeviceIndication";

bool IsOurs(const ClassDefinition& definition) {
    return definition.name.starts_with("QV_");
}

std::vector<std::string> KeyNames(const std::string& className) {
    std::vector<std::string> names;
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

TEST(ShippedClasses, DefineEveryPublishedClassAsDynamic) {
    for (const std::string& name : ExpectedClassNames()) {
        const ClassDefinition* const definition = ShippedRepository().Find(name);
        ASSERT_NE(definition, nullptr) << name;
        EXPECT_EQ(definition->name, name);
        const Qualifier* const dynamic = FindQualifier(definition->qualifiers, "dynamic");
        ASSERT_NE(dynamic, nullptr) << name;
        EXPECT_TRUE(dynamic->toInstance) << name;
        const Qualifier* const provider = FindQualifier(definition->qualifiers, "provider");
        ASSERT_NE(provider, nullptr) << name;
        EXPECT_EQ(provider->value, CimValue("QVWMISATA_InstProv")) << name;
        EXPECT_TRUE(provider->toInstance) << name;
    }
}

TEST(ShippedClasses, AreDynamicOnlyWhenTheyArePublished) {
    std::vector<std::string> dynamic;
    for (const ClassDefinition& definition : ShippedRepository().Classes()) {
        if (HasQualifier(definition.qualifiers, "dynamic")) {
            dynamic.push_back(definition.name);
        }
    }
    EXPECT_THAT(dynamic, UnorderedElementsAreArray(ExpectedClassNames()));
}

std::vector<std::string> PublishedAssociations() {
    std::vector<std::string> names = ExpectedClassNames();
    std::erase_if(names, [](const std::string& name) {
        return ShippedRepository().ClassQualifier(name, "Association") == nullptr;
    });
    return names;
}

TEST(ShippedClasses, AreAssociationsExactlyBehindTheInstanceClasses) {
    EXPECT_EQ(PublishedAssociations(), ExpectedAssociationNames());
}

TEST(ShippedClasses, HaveTheSuperclassesOfTheCatalogue) {
    for (const ExpectedNode& node : ExpectedHierarchy()) {
        const ClassDefinition* const definition = ShippedRepository().Find(node.name);
        ASSERT_NE(definition, nullptr) << node.name;
        EXPECT_EQ(definition->superclass, node.superclass) << node.name;
    }
}

TEST(ShippedClasses, HoldNoSuperclassThatNothingOfOursDerivesFrom) {
    std::set<std::string> used;
    for (const ClassDefinition& definition : ShippedRepository().Classes()) {
        if (IsOurs(definition)) {
            const auto ancestors = ShippedRepository().Derivation(definition.name);
            used.insert(ancestors.begin(), ancestors.end());
        }
    }
    for (const ClassDefinition& definition : ShippedRepository().Classes()) {
        if (!IsOurs(definition)) {
            EXPECT_TRUE(used.contains(definition.name)) << definition.name;
        }
    }
}

TEST(ShippedClasses, AreDescribedWhereTheyAreOurs) {
    for (const ClassDefinition& definition : ShippedRepository().Classes()) {
        if (!IsOurs(definition)) {
            continue;
        }
        EXPECT_TRUE(HasQualifier(definition.qualifiers, "Description")) << definition.name;
        for (const PropertyDefinition& property : definition.properties) {
            EXPECT_TRUE(HasQualifier(property.qualifiers, "Description"))
                << definition.name << '.' << property.name;
        }
    }
}

bool IsAbstract(const ClassDefinition& definition) {
    return HasQualifier(definition.qualifiers, "Abstract");
}

TEST(ShippedClasses, AreAbstractUnlessTheyHaveInstancesOrAreIndications) {
    for (const ClassDefinition& definition : ShippedRepository().Classes()) {
        const bool mayBeConcrete = HasQualifier(definition.qualifiers, "dynamic") ||
                                   ShippedRepository().IsA(definition.name, "__Event");
        EXPECT_EQ(IsAbstract(definition), !mayBeConcrete) << definition.name;
    }
}

TEST(ShippedClasses, AreConcreteBelowTheEventClass) {
    for (const char* const name : {"CIM_Indication", "CIM_ProcessIndication", "CIM_AlertIndication",
                                   "QV_SATADeviceIndication"}) {
        EXPECT_TRUE(ShippedRepository().IsA(name, "__ExtrinsicEvent")) << name;
        EXPECT_FALSE(IsAbstract(*ShippedRepository().Find(name))) << name;
    }
}

TEST(ShippedClasses, HaveAbstractParentsWhereAProviderMakesTheirInstances) {
    for (const std::string& name : ExpectedClassNames()) {
        const std::string& parent = ShippedRepository().Find(name)->superclass;
        EXPECT_TRUE(IsAbstract(*ShippedRepository().Find(parent))) << name;
    }
}

/// Each key or property of a class, "Class.Property", and its type.
using Types = std::map<std::string, std::string>;

/// Returns the declared types of the properties in `expected`.
Types DeclaredTypes(const Types& expected) {
    Types declared;
    for (const auto& [path, type] : expected) {
        const std::size_t point = path.find('.');
        declared[path] = TypeOf(path.substr(0, point), path.substr(point + 1));
    }
    return declared;
}

using Names = std::vector<std::string>;

Names KeysOf(const ExpectedInstanceClass& expected) {
    Names keys;
    for (const ExpectedProperty& property : expected.tables.front().properties) {
        if (property.put.key) {
            keys.push_back(property.put.name);
        }
    }
    return keys;
}

Names KeysOf(const ExpectedAssociation& expected) {
    Names keys;
    for (const ExpectedEnd& end : expected.ends) {
        keys.push_back(end.role);
    }
    return keys;
}

TEST(ShippedClasses, HaveTheKeysThatArePublished) {
    for (const ExpectedInstanceClass& expected : ExpectedInstanceClasses()) {
        EXPECT_THAT(KeyNames(expected.name), UnorderedElementsAreArray(KeysOf(expected)))
            << expected.name;
    }
    for (const ExpectedAssociation& expected : ExpectedAssociations()) {
        EXPECT_THAT(KeyNames(expected.name), UnorderedElementsAreArray(KeysOf(expected)))
            << expected.name;
    }
}

TEST(ShippedClasses, HaveAnIndicationWithoutKeys) {
    ASSERT_NE(ShippedRepository().Find(indication), nullptr);
    EXPECT_THAT(KeyNames(indication), testing::IsEmpty());
}

TEST(ShippedClasses, HaveEveryPropertyThatIsPublished) {
    Types expected;
    for (const ExpectedInstanceClass& one : ExpectedInstanceClasses()) {
        for (const ExpectedTable& table : one.tables) {
            for (const ExpectedProperty& property : table.properties) {
                expected[one.name + '.' + property.put.name] = property.mofType;
            }
        }
    }
    for (const ExpectedAssociation& one : ExpectedAssociations()) {
        if (one.added) {
            expected[one.name + '.' + one.added->put.name] = one.added->mofType;
        }
    }
    EXPECT_EQ(DeclaredTypes(expected), expected);
}

TEST(ShippedClasses, HaveEveryPropertyOfTheIndication) {
    Types expected;
    for (const ExpectedEventProperty& property : ExpectedEventProperties()) {
        expected[indication + '.' + property.name] = property.mofType;
    }
    EXPECT_EQ(DeclaredTypes(expected), expected);
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
