#include "source/KeyTable.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace qv::test {
namespace {

using Places = KeyTable::Places;

TEST(KeyTable, FindsThePlacesOfEqualTexts) {
    const KeyTable table({"b", "a", "b", "B"});
    EXPECT_EQ(table.Equal("b"), (Places{0, 2}));
    EXPECT_EQ(table.Equal("B"), Places{3});
    EXPECT_EQ(table.Equal("c"), Places{});
    EXPECT_EQ(table.Equal(""), Places{});
}

TEST(KeyTable, ATextIsNotEqualToItsBeginning) {
    const KeyTable table({"ab", "a"});
    EXPECT_EQ(table.Equal("abc"), Places{});
    EXPECT_EQ(table.Equal("a"), Places{1});
}

TEST(KeyTable, FindsThePlacesOfSeveralTextsInAscendingOrderEachOnce) {
    const KeyTable table({"b", "a", "b", "c"});
    EXPECT_EQ(table.EqualToAny({"c", "b", "x", "c"}), (Places{0, 2, 3}));
    EXPECT_EQ(table.EqualToAny({}), Places{});
}

TEST(KeyTable, FindsAllBeginningsThoughOthersAreSortedBetweenThem) {
    const KeyTable table({"abd", "a", "abca", "ab", "abcz", "b", ""});
    EXPECT_EQ(table.Beginnings("abcd"), (Places{1, 3, 6}));
    EXPECT_EQ(table.Beginnings("abd"), (Places{0, 1, 3, 6}));
    EXPECT_EQ(table.Beginnings("zz"), Places{6});
    EXPECT_EQ(table.Beginnings(""), Places{6});
}

TEST(KeyTable, FindsTheBeginningsInALongChainOfThem) {
    std::vector<std::string> chain(100);
    std::ranges::generate(chain, [text = std::string()]() mutable { return text += 'a'; });
    const KeyTable table(chain);
    EXPECT_EQ(table.Beginnings("aaab"), (Places{0, 1, 2}));
    EXPECT_EQ(table.Beginnings("b"), Places{});
    EXPECT_EQ(table.Contained("baab"), (Places{0, 1}));
    EXPECT_EQ(table.Equal(std::string(57, 'a')), Places{56});
    EXPECT_EQ(table.Contained(std::string(200, 'a')).size(), 100U);
}

TEST(KeyTable, FindsTextsThatOccurAtTheBeginningInTheMiddleAndAtTheEnd) {
    const KeyTable table({"end", "mid", "be", "be mid end", "none", "id"});
    EXPECT_EQ(table.Contained("be mid end"), (Places{0, 1, 2, 3, 5}));
}

TEST(KeyTable, TheEmptyTextOccursInEveryTextOnce) {
    const KeyTable table({"", "x", ""});
    EXPECT_EQ(table.Contained("abc"), (Places{0, 2}));
    EXPECT_EQ(table.Contained(""), (Places{0, 2}));
}

TEST(KeyTable, FindsTextsOfAnyBytes) {
    const KeyTable table({"\xC4\xFF", std::string(1, '\0')});
    EXPECT_EQ(table.Contained("a\xC4\xFFz"), Places{0});
    EXPECT_EQ(table.Contained(std::string("a\0z", 3)), Places{1});
}

TEST(KeyTable, AnEmptyTableHasNothing) {
    const KeyTable table({});
    EXPECT_EQ(table.Equal(""), Places{});
    EXPECT_EQ(table.Beginnings("a"), Places{});
    EXPECT_EQ(table.Contained("a"), Places{});
}

}  // namespace
}  // namespace qv::test
