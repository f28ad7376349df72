#include "qvsata/view/diff/Differences.h"

#include <gmock/gmock.h>

namespace qv::test {
namespace {

using nlohmann::ordered_json;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using view::Differences;
using view::FindDifferences;
using view::Item;
using view::MemberChange;

Item Thing(const char* key, ordered_json value) {
    return {key, {{"value", std::move(value)}}};
}

TEST(Differences, AreNoneInAnotherOrder) {
    EXPECT_TRUE(
        FindDifferences({Thing("a", 1), Thing("b", 2)}, {Thing("b", 2), Thing("a", 1)}).IsEmpty());
}

TEST(Differences, NameWhatIsGoneAndWhatAppeared) {
    const Differences found = FindDifferences({Thing("a", 1), Thing("b", 2)}, {Thing("c", 1)});
    EXPECT_THAT(found.gone, ElementsAre(Field(&Item::key, "a"), Field(&Item::key, "b")));
    EXPECT_THAT(found.appeared, ElementsAre(Field(&Item::key, "c")));
    EXPECT_THAT(found.changed, IsEmpty());
}

TEST(Differences, NameEachChangedMember) {
    const Differences found = FindDifferences({{"a", {{"one", 1}, {"two", 2}, {"lost", 3}}}},
                                              {{"a", {{"one", 1}, {"two", "II"}, {"got", 4}}}});
    ASSERT_EQ(found.changed.size(), 1U);
    EXPECT_THAT(found.changed.front().changes, ElementsAre(Field(&MemberChange::member, "two"),
                                                           Field(&MemberChange::member, "got"),
                                                           Field(&MemberChange::member, "lost")));
    EXPECT_EQ(found.changed.front().changes[0].before, 2);
    EXPECT_EQ(found.changed.front().changes[0].now, "II");
    EXPECT_TRUE(found.changed.front().changes[1].before.is_null());
    EXPECT_TRUE(found.changed.front().changes[2].now.is_null());
}

TEST(Differences, OfThingsWithOneKeyPairTheEqualOnesFirst) {
    const Differences found =
        FindDifferences({Thing("a", 1), Thing("a", 2)}, {Thing("a", 2), Thing("a", 3)});
    ASSERT_EQ(found.changed.size(), 1U);
    EXPECT_EQ(found.changed.front().changes.front().before, 1);
    EXPECT_EQ(found.changed.front().changes.front().now, 3);
    EXPECT_THAT(found.gone, IsEmpty());
    EXPECT_THAT(found.appeared, IsEmpty());
}

TEST(Differences, CountThingsWithOneKey) {
    EXPECT_EQ(FindDifferences({Thing("a", 1)}, {Thing("a", 1), Thing("a", 1)}).appeared.size(), 1U);
    EXPECT_EQ(FindDifferences({Thing("a", 1), Thing("a", 1)}, {Thing("a", 1)}).gone.size(), 1U);
}

}  // namespace
}  // namespace qv::test
