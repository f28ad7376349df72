// The shipped association classes, compared with the published catalogue.
#include <gmock/gmock.h>

#include "tests/qvsata/mof/ShippedFiles.h"
#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {
namespace {

using namespace service;

std::vector<PropertyDefinition> References(const std::string& className) {
    auto properties = ShippedRepository().Properties(className);
    std::erase_if(properties, [](const PropertyDefinition& property) {
        return property.type != CimType::reference;
    });
    return properties;
}

TEST(ShippedAssociations, ReferToTheEndpointsOfTheirRoles) {
    for (const ExpectedAssociation& row : ExpectedAssociations()) {
        const auto references = References(row.name);
        ASSERT_EQ(references.size(), row.ends.size()) << row.name;
        for (std::size_t at = 0; at < references.size(); ++at) {
            EXPECT_EQ(references[at].name, row.ends[at].role) << row.name;
            EXPECT_EQ(references[at].referenceClass, row.ends[at].className) << row.name;
            EXPECT_TRUE(references[at].isKey) << row.name;
        }
    }
}

TEST(ShippedAssociations, DeriveFromTheCimAssociationOfTheirKind) {
    for (const ExpectedAssociation& row : ExpectedAssociations()) {
        EXPECT_EQ(ShippedRepository().Find(row.name)->superclass, row.superclass) << row.name;
    }
}

TEST(ShippedAssociations, ShowInstancesAndSubclassesThatTheyAreAssociations) {
    for (const ExpectedAssociation& row : ExpectedAssociations()) {
        const Qualifier* const association =
            FindQualifier(ShippedRepository().Find(row.name)->qualifiers, "Association");
        ASSERT_NE(association, nullptr) << row.name;
        EXPECT_TRUE(association->toInstance) << row.name;
        EXPECT_TRUE(association->toSubclass) << row.name;
    }
}

TEST(ShippedAssociations, AreTheOnlyClassesWithReferences) {
    for (const ClassDefinition& definition : ShippedRepository().Classes()) {
        EXPECT_EQ(!References(definition.name).empty(),
                  ShippedRepository().ClassQualifier(definition.name, "Association") != nullptr)
            << definition.name;
    }
}

}  // namespace
}  // namespace qv::test
