#include "catalogue/Classes.h"

#include <gmock/gmock.h>

#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {
namespace {

std::vector<std::string> PublishedNames() {
    std::vector<std::string> names;
    for (const PublishedClass& one : PublishedClasses()) {
        names.emplace_back(one.name);
    }
    return names;
}

TEST(Classes, AreThoseOfTheCatalogueInDispatchOrder) {
    EXPECT_EQ(PublishedNames(), ExpectedClassNames());
    EXPECT_THAT(PublishedNames(), testing::SizeIs(instanceClassTotal + associationTotal));
}

TEST(Classes, AreInstanceClassesAndBehindThemAssociations) {
    EXPECT_EQ(instanceClassCount, instanceClassTotal);
    EXPECT_THAT(ExpectedInstanceClasses(), testing::SizeIs(instanceClassTotal));
    EXPECT_THAT(ExpectedAssociations(), testing::SizeIs(associationTotal));
}

}  // namespace
}  // namespace qv::test
