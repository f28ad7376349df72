#include "source/Text.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using Pieces = std::vector<std::string>;

TEST(Text, EqualsIgnoringCaseFoldsAsciiLettersOnly) {
    EXPECT_TRUE(EqualsIgnoringCase("QV_sataDISKdrive", "qv_SATAdiskDRIVE"));
    EXPECT_TRUE(EqualsIgnoringCase("azAZ", "AZaz"));
    EXPECT_FALSE(EqualsIgnoringCase("@[`{", "`{@["));
    EXPECT_FALSE(EqualsIgnoringCase("\xC3\xA9", "\xC3\x89"));
}

TEST(Text, EqualsIgnoringCaseTellsTextsOfDifferentLengthApart) {
    EXPECT_FALSE(EqualsIgnoringCase("abc", "abcd"));
    EXPECT_FALSE(EqualsIgnoringCase("", "a"));
    EXPECT_TRUE(EqualsIgnoringCase("", ""));
}

TEST(Text, ToUpperRaisesAsciiLettersOnly) {
    EXPECT_EQ(ToUpper("QV_sataAZaz@[`{09"), "QV_SATAAZAZ@[`{09");
    EXPECT_EQ(ToUpper("\xC3\xA9"), "\xC3\xA9");
}

TEST(Text, FoldCaseLowersAsciiLettersOnly) {
    EXPECT_EQ(FoldCase("QV_sataAZaz@[`{09"), "qv_sataazaz@[`{09");
    EXPECT_EQ(FoldCase("\xC3\x89"), "\xC3\x89");
    EXPECT_EQ(FoldCase(""), "");
}

TEST(Text, EncodeDeviceIdReplacesEachBackslashByAnAmpersand) {
    EXPECT_EQ(EncodeDeviceId(R"(IDE\DISK&VEN_X\5&1)"), "IDE&DISK&VEN_X&5&1");
    EXPECT_EQ(EncodeDeviceId(R"(IDE\DISKX\5&1)"), "IDE&DISKX&5&1");
    EXPECT_EQ(EncodeDeviceId(R"(\\a\)"), "&&a&");
}

TEST(Text, EncodeDeviceIdLeavesATextWithoutBackslashesUnchanged) {
    EXPECT_EQ(EncodeDeviceId("IDE/DISK 1\"*-*"), "IDE/DISK 1\"*-*");
    EXPECT_EQ(EncodeDeviceId(""), "");
}

TEST(Text, StripBackslashesRemovesEveryBackslash) {
    EXPECT_EQ(StripBackslashes(R"(\\.\PHYSICALDRIVE0\)"), ".PHYSICALDRIVE0");
    EXPECT_EQ(StripBackslashes("a&b/c"), "a&b/c");
    EXPECT_EQ(StripBackslashes(R"(\\)"), "");
}

TEST(Text, SplitListCutsAtEverySeparator) {
    EXPECT_EQ(SplitList("3*-*10"), (Pieces{"3", "10"}));
    EXPECT_EQ(SplitList("one"), Pieces{"one"});
}

TEST(Text, SplitListGivesNoPieceForAnEmptyText) {
    EXPECT_EQ(SplitList(""), Pieces{});
}

TEST(Text, SplitListGivesEmptyPiecesBetweenConsecutiveSeparators) {
    EXPECT_EQ(SplitList("2*-**-*5"), (Pieces{"2", "", "5"}));
    EXPECT_EQ(SplitList("*-*"), (Pieces{"", ""}));
    EXPECT_EQ(SplitList("a*-*"), (Pieces{"a", ""}));
}

TEST(Text, SplitListTakesPiecesAsTheyStand) {
    EXPECT_EQ(SplitList(" a *-*\tb*-c-*"), (Pieces{" a ", "\tb*-c-*"}));
}

TEST(Text, JoinListPutsTheSeparatorBetweenPieces) {
    EXPECT_EQ(JoinList(Pieces{"2", "6"}), "2*-*6");
    EXPECT_EQ(JoinList(Pieces{"2", "", "5"}), "2*-**-*5");
    EXPECT_EQ(JoinList(Pieces{"one"}), "one");
    EXPECT_EQ(JoinList(Pieces{}), "");
}

}  // namespace
}  // namespace qv::test
