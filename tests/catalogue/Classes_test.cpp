#include "catalogue/Classes.h"

#include <gmock/gmock.h>

#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {
namespace {

TEST(Classes, AreThoseOfTheCatalogueInDispatchOrder) {
    std::vector<std::string> names;
    for (const PublishedClass& one : PublishedClasses()) {
        names.emplace_back(one.name);
    }
    EXPECT_EQ(names, ExpectedClassNames());
    EXPECT_THAT(names, testing::SizeIs(instanceClassTotal + associationTotal));
}

TEST(Classes, AreInstanceClassesAndBehindThemAssociations) {
    EXPECT_EQ(instanceClassCount, instanceClassTotal);
    EXPECT_THAT(ExpectedInstanceClasses(), testing::SizeIs(instanceClassTotal));
    EXPECT_THAT(ExpectedAssociations(), testing::SizeIs(associationTotal));
}

}  // namespace
}  // namespace qv::test
