#include "catalogue/Classes.h"

#include <gmock/gmock.h>

#include <algorithm>

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
    const auto isAssociation = [](const PublishedClass& one) { return one.association != nullptr; };
    const auto classes = PublishedClasses();
    EXPECT_TRUE(std::ranges::none_of(classes.first(instanceClassTotal), isAssociation));
    EXPECT_TRUE(std::ranges::all_of(classes.subspan(instanceClassTotal), isAssociation));
    EXPECT_THAT(ExpectedInstanceClasses(), testing::SizeIs(instanceClassTotal));
    EXPECT_THAT(ExpectedAssociations(), testing::SizeIs(associationTotal));
}

}  // namespace
}  // namespace qv::test
