#include "qvsata/view/Partners.h"

#include <gtest/gtest.h>

#include "tests/qvsata/view/Published.h"

namespace qv::test {
namespace {

using view::Identities;

const PublishedObject one = Instance("A", "K", "1");
const PublishedObject two = Instance("A", "K", "2");
const PublishedObject shorter = Instance("B", "K", "x");
const PublishedObject longer = Instance("B", "K", "xy");

view::PublishedHost Linked(std::vector<PublishedObject> links) {
    return {{"L", std::move(links)}};
}

TEST(Partners, AreTheIdentitiesOfBothEnds) {
    const auto host =
        Linked({Link("L", "From", one, "To", shorter), Link("L", "From", two, "To", longer)});
    EXPECT_EQ(Partners(host, "L", "From", "To"),
              (Identities{{R"(a.k="1")", R"(b.k="x")"}, {R"(a.k="2")", R"(b.k="xy")"}}));
    EXPECT_EQ(Partners(host, "L", "To", "From"),
              (Identities{{R"(b.k="x")", R"(a.k="1")"}, {R"(b.k="xy")", R"(a.k="2")"}}));
}

TEST(Partners, AreTheLongestOfSeveralWhateverTheirOrder) {
    const auto toShorter = Link("L", "From", one, "To", shorter);
    const auto toLonger = Link("L", "From", one, "To", longer);
    const Identities expected{{R"(a.k="1")", R"(b.k="xy")"}};
    EXPECT_EQ(Partners(Linked({toShorter, toLonger}), "L", "From", "To"), expected);
    EXPECT_EQ(Partners(Linked({toLonger, toShorter}), "L", "From", "To"), expected);
}

TEST(Partners, AreNotJoinedByAnEmptyReference) {
    const PublishedObject fromNothing{"L", "L", {}, {{"To", one.path}}};
    const PublishedObject toNothing{"L", "L", {}, {{"From", one.path}}};
    EXPECT_EQ(Partners(Linked({fromNothing, toNothing}), "L", "From", "To"), Identities{});
}

TEST(Partners, AreNoneOfAnAssociationThatTheHostLacks) {
    EXPECT_EQ(Partners(Linked({}), "M", "From", "To"), Identities{});
}

TEST(Partners, InvertedHasTheKeysByTheirValues) {
    EXPECT_EQ(view::Inverted({{"a", "x"}, {"b", "y"}}), (Identities{{"x", "a"}, {"y", "b"}}));
}

TEST(Partners, LookupGivesAnEmptyTextForAnObjectWithoutPartner) {
    EXPECT_EQ(view::Lookup({{"a", "x"}}, "a"), "x");
    EXPECT_EQ(view::Lookup({{"a", "x"}}, "b"), "");
}

}  // namespace
}  // namespace qv::test
