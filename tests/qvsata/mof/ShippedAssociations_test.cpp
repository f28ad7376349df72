// The shipped association classes, compared with the published catalogue.
#include <gmock/gmock.h>

#include "tests/qvsata/mof/ShippedFiles.h"
#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {
namespace {

using namespace service;

PropertyRefs References(const std::string& className) {
    auto properties = ShippedRepository().Properties(className);
    std::erase_if(properties, [](const PropertyDefinition& property) {
        return property.type != CimType::reference;
    });
    return properties;
}

/// Returns a class's references as "Role: Class (key)".
std::vector<std::string> ReferenceTexts(const std::string& className) {
    std::vector<std::string> texts;
    for (const PropertyDefinition& reference : References(className)) {
        texts.push_back(reference.name + ": " + reference.referenceClass +
                        (reference.isKey ? " (key)" : ""));
    }
    return texts;
}

std::vector<std::string> ReferenceTexts(const ExpectedAssociation& expected) {
    std::vector<std::string> texts;
    for (const ExpectedEnd& end : expected.ends) {
        texts.push_back(end.role + ": " + end.className + " (key)");
    }
    return texts;
}

class ShippedAssociationsTest : public testing::TestWithParam<ExpectedAssociation> {};

TEST_P(ShippedAssociationsTest, ReferToTheEndpointsOfTheirRoles) {
    EXPECT_EQ(ReferenceTexts(GetParam().name), ReferenceTexts(GetParam()));
}

TEST_P(ShippedAssociationsTest, DeriveFromTheCimAssociationOfTheirKind) {
    EXPECT_EQ(ShippedRepository().Find(GetParam().name)->superclass, GetParam().superclass);
}

TEST_P(ShippedAssociationsTest, ShowInstancesAndSubclassesThatTheyAreAssociations) {
    const Qualifier* const association =
        FindQualifier(ShippedRepository().Find(GetParam().name)->qualifiers, "Association");
    ASSERT_NE(association, nullptr);
    EXPECT_TRUE(association->toInstance);
    EXPECT_TRUE(association->toSubclass);
}

INSTANTIATE_TEST_SUITE_P(EveryAssociation, ShippedAssociationsTest,
                         testing::ValuesIn(ExpectedAssociations()),
                         [](const auto& association) { return association.param.name; });

/// Returns the names of the shipped classes that meet a condition on their names.
template <typename Condition>
std::vector<std::string> ClassesOf(Condition holds) {
    std::vector<std::string> names;
    for (const ClassDefinition& definition : ShippedRepository().Classes()) {
        if (holds(definition.name)) {
            names.push_back(definition.name);
        }
    }
    return names;
}

TEST(ShippedAssociations, AreTheOnlyClassesWithReferences) {
    EXPECT_EQ(ClassesOf([](const std::string& name) { return !References(name).empty(); }),
              ClassesOf([](const std::string& name) {
                  return ShippedRepository().ClassQualifier(name, "Association") != nullptr;
              }));
}

}  // namespace
}  // namespace qv::test
