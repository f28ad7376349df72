#include "qvsata/wql/WqlLike.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/qvsata/wql/RepeatedText.h"

namespace qv::test {
namespace {

using namespace service;

bool Like(std::string_view text, std::string_view pattern) {
    return LikePattern(pattern).Matches(text);
}

TEST(WqlLike, MatchesPlainTextWithoutRegardToCase) {
    EXPECT_TRUE(Like("Disk", "dISK"));
    EXPECT_FALSE(Like("Disk", "Dis"));
    EXPECT_FALSE(Like("Dis", "Disk"));
    EXPECT_TRUE(Like("", ""));
}

TEST(WqlLike, TakesPercentForAnyText) {
    EXPECT_TRUE(Like("", "%"));
    EXPECT_TRUE(Like(R"(PCIIDE\IDECHANNEL\4&1)", "%idechannel%"));
    EXPECT_TRUE(Like("abcabd", "%abd"));
    EXPECT_TRUE(Like("aXbYc", "a%b%c"));
    EXPECT_FALSE(Like("aXbY", "a%b%c"));
    EXPECT_FALSE(Like("xab", "ab%"));
}

TEST(WqlLike, TakesUnderscoreForOneCharacterOfAnyScript) {
    EXPECT_TRUE(Like("abc", "a_c"));
    EXPECT_FALSE(Like("ac", "a_c"));
    EXPECT_TRUE(
        Like("a\xC3\xA9"
             "c",
             "a_c"));
    EXPECT_TRUE(
        Like("a\xE2\x82\xAC"
             "c",
             "a_c"));
    EXPECT_TRUE(
        Like("a\xF0\x9F\x92\xBE"
             "c",
             "a_c"));
}

TEST(WqlLike, MatchesSetsAndRanges) {
    EXPECT_TRUE(Like("b1", "[abc]1"));
    EXPECT_TRUE(Like("B1", "[a-c][0-9]"));
    EXPECT_FALSE(Like("d1", "[a-c]1"));
    EXPECT_TRUE(Like("-", "[a-]"));
    EXPECT_TRUE(Like("x", "[^a-c]"));
    EXPECT_FALSE(Like("b", "[^a-c]"));
}

TEST(WqlLike, TakesWildcardsInsideASetForThemselves) {
    EXPECT_TRUE(Like("50%", "50[%]"));
    EXPECT_FALSE(Like("50x", "50[%]"));
    EXPECT_TRUE(Like("a_b", "a[_]b"));
    EXPECT_TRUE(Like("a[b", "a[[]b"));
    EXPECT_TRUE(Like("a]b", "a[]]b"));
}

TEST(WqlLike, EndsInTimeOnManyWildcards) {
    EXPECT_FALSE(Like(std::string(5000, 'a') + "b", RepeatedText(500, "%a")));
}

TEST(WqlLike, KnowsWhetherItsSetsAreClosed) {
    EXPECT_TRUE(LikePattern::IsClosed("a[bc]%]"));
    EXPECT_FALSE(LikePattern::IsClosed("a[bc"));
    EXPECT_FALSE(LikePattern::IsClosed("[]"));
}

}  // namespace
}  // namespace qv::test
