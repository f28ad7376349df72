#include "NativeAPI/KeyMatching.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

bool Holds(std::string_view first, std::string_view second, std::uint32_t rule) {
    return MatchKeyValues(first, second, static_cast<MatchRule>(rule));
}

TEST(KeyMatching, MatchRuleHasTheNumbersThatAssociationsGoBy) {
    EXPECT_EQ(MatchRule::equal, static_cast<MatchRule>(1));
    EXPECT_EQ(MatchRule::firstContains, static_cast<MatchRule>(6));
    EXPECT_EQ(MatchRule::secondContains, static_cast<MatchRule>(7));
    EXPECT_EQ(MatchRule::firstContainsToo, static_cast<MatchRule>(10));
}

TEST(KeyMatching, Rule0AlwaysHolds) {
    EXPECT_TRUE(Holds("a", "b", 0));
    EXPECT_TRUE(Holds("", "b", 0));
    EXPECT_TRUE(Holds("", "", 0));
}

TEST(KeyMatching, Rule1IsEqualityInAnyLetterCase) {
    EXPECT_TRUE(Holds("IDE&Disk&5", "ide&dISK&5", 1));
    EXPECT_TRUE(Holds("", "", 1));
    EXPECT_FALSE(Holds("IDE&5", "IDE&50", 1));
    EXPECT_FALSE(Holds("", "a", 1));
}

TEST(KeyMatching, Rule1DoesNotFoldOtherThanAsciiLetters) {
    EXPECT_FALSE(Holds("\xC4", "\xE4", 1));
    EXPECT_FALSE(Holds("[", "{", 1));
}

TEST(KeyMatching, Rule2HoldsWhenTheFirstBeginsWithTheSecond) {
    EXPECT_TRUE(Holds("abcd", "ABc", 2));
    EXPECT_TRUE(Holds("abc", "abc", 2));
    EXPECT_TRUE(Holds("abc", "", 2));
    EXPECT_FALSE(Holds("abc", "abcd", 2));
    EXPECT_FALSE(Holds("abcd", "bcd", 2));
}

TEST(KeyMatching, Rule3HoldsWhenTheFirstEndsWithTheSecond) {
    EXPECT_TRUE(Holds("abcd", "BCD", 3));
    EXPECT_TRUE(Holds("abc", "abc", 3));
    EXPECT_TRUE(Holds("abc", "", 3));
    EXPECT_FALSE(Holds("bcd", "abcd", 3));
    EXPECT_FALSE(Holds("abcd", "abc", 3));
}

TEST(KeyMatching, Rule4HoldsWhenTheSecondBeginsWithTheFirst) {
    EXPECT_TRUE(Holds("ABc", "abcd", 4));
    EXPECT_TRUE(Holds("", "abc", 4));
    EXPECT_FALSE(Holds("abcd", "abc", 4));
    EXPECT_FALSE(Holds("bcd", "abcd", 4));
}

TEST(KeyMatching, Rule5HoldsWhenTheSecondEndsWithTheFirst) {
    EXPECT_TRUE(Holds("BCD", "abcd", 5));
    EXPECT_TRUE(Holds("", "abc", 5));
    EXPECT_FALSE(Holds("abcd", "bcd", 5));
    EXPECT_FALSE(Holds("abc", "abcd", 5));
}

TEST(KeyMatching, Rule6HoldsWhenTheFirstContainsTheSecondInItsLetterCase) {
    EXPECT_TRUE(Holds("xIDEy", "IDE", 6));
    EXPECT_TRUE(Holds("IDE", "IDE", 6));
    EXPECT_TRUE(Holds("IDE", "", 6));
    EXPECT_TRUE(Holds("", "", 6));
    EXPECT_FALSE(Holds("xIDEy", "ide", 6));
    EXPECT_FALSE(Holds("IDE", "xIDEy", 6));
    EXPECT_FALSE(Holds("", "IDE", 6));
}

TEST(KeyMatching, Rule7HoldsWhenTheSecondContainsTheFirstInItsLetterCase) {
    EXPECT_TRUE(Holds("IDE", "xIDEy", 7));
    EXPECT_TRUE(Holds("", "IDE", 7));
    EXPECT_FALSE(Holds("ide", "xIDEy", 7));
    EXPECT_FALSE(Holds("xIDEy", "IDE", 7));
}

TEST(KeyMatching, Rule8HoldsWhenTheFirstListsTheSecondInAnyLetterCase) {
    EXPECT_TRUE(Holds("one*-*two", "TWO", 8));
    EXPECT_TRUE(Holds("one", "ONE", 8));
    EXPECT_FALSE(Holds("one*-*two", "on", 8));
    EXPECT_FALSE(Holds("one*-*two", "one*-*two", 8));
    EXPECT_FALSE(Holds("two", "one*-*two", 8));
}

TEST(KeyMatching, Rule8TakesTheElementsAsTheyStand) {
    EXPECT_TRUE(Holds("one*-**-*two", "", 8));
    EXPECT_TRUE(Holds("one*-*", "", 8));
    EXPECT_TRUE(Holds(" one*-*two", " ONE", 8));
    EXPECT_FALSE(Holds(" one*-*two", "one", 8));
}

TEST(KeyMatching, Rule8AnEmptyListHasNoElement) {
    EXPECT_FALSE(Holds("", "", 8));
}

TEST(KeyMatching, Rule9HoldsWhenTheSecondListsTheFirstInAnyLetterCase) {
    EXPECT_TRUE(Holds("TWO", "one*-*two", 9));
    EXPECT_TRUE(Holds("", "one*-*", 9));
    EXPECT_FALSE(Holds("one*-*two", "two", 9));
    EXPECT_FALSE(Holds("", "", 9));
}

TEST(KeyMatching, Rule10IsTheSameAsRule6) {
    EXPECT_TRUE(Holds("xIDEy", "IDE", 10));
    EXPECT_TRUE(Holds("xIDEy", "", 10));
    EXPECT_FALSE(Holds("xIDEy", "ide", 10));
    EXPECT_FALSE(Holds("IDE", "xIDEy", 10));
}

TEST(KeyMatching, Rules11AndAboveNeverHold) {
    EXPECT_FALSE(Holds("a", "a", 11));
    EXPECT_FALSE(Holds("", "", 12));
    EXPECT_FALSE(Holds("a", "a", 0xFFFFFFFFU));
}

}  // namespace
}  // namespace qv::test
