#include "qvsata/mof/MofLexer.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace qv::test {
namespace {

using namespace service;

MofToken First(std::string_view text) {
    return TokenizeMof(text, "a.mof").front();
}

std::string LexerError(std::string_view text) {
    try {
        TokenizeMof(text, "a.mof");
    } catch (const MofError& error) {
        return error.what();
    }
    return "no error";
}

TEST(MofLexer, EndsWithAnEndToken) {
    EXPECT_EQ(First("").kind, MofTokenKind::end);
    EXPECT_EQ(TokenizeMof("a b", "a.mof").size(), 3U);
}

TEST(MofLexer, LeavesCommentsOut) {
    const auto tokens = TokenizeMof("a // b \"c\"\n/* d\n * e */ f", "a.mof");
    ASSERT_EQ(tokens.size(), 3U);
    EXPECT_EQ(tokens[0].text, "a");
    EXPECT_EQ(tokens[1].text, "f");
}

TEST(MofLexer, CountsLinesAndColumnsFromOne) {
    const auto tokens = TokenizeMof("a\r\n  /* x\n */ b", "a.mof");
    EXPECT_EQ(tokens[0].position.line, 1U);
    EXPECT_EQ(tokens[0].position.column, 1U);
    EXPECT_EQ(tokens[1].position.line, 3U);
    EXPECT_EQ(tokens[1].position.column, 5U);
}

TEST(MofLexer, PassesOverAByteOrderMark) {
    EXPECT_EQ(First("\xEF\xBB\xBF"
                    "class")
                  .text,
              "class");
}

TEST(MofLexer, ResolvesEscapes) {
    EXPECT_EQ(First(R"("\\\\.\\root \"q\" \'s\' \t\n\r\b\f")").text,
              "\\\\.\\root \"q\" 's' \t\n\r\b\f");
}

TEST(MofLexer, TurnsHexadecimalEscapesIntoUtf8) {
    EXPECT_EQ(First(R"("\x41\xe9 \x20ac")").text, "A\xC3\xA9 \xE2\x82\xAC");
}

TEST(MofLexer, JoinsTheHalvesOfACharacterInEscapes) {
    EXPECT_EQ(First(R"("\xD83D\xDCBE!")").text, "\xF0\x9F\x92\xBE!");
    EXPECT_EQ(LexerError(R"("a\xD83D b")"), "a.mof:1:3: half of a character");
    EXPECT_EQ(LexerError(R"("a\xDCBE")"), "a.mof:1:3: half of a character");
    EXPECT_EQ(LexerError(R"("a\xD83D\x41")"), "a.mof:1:3: half of a character");
}

TEST(MofLexer, RefusesBytesThatAreNoUtf8AtTheirPlace) {
    EXPECT_EQ(LexerError("a\n \"b\xFF\xFE\""), "a.mof:2:4: not UTF-8");
    EXPECT_EQ(LexerError("\"\xE2\x82\""), "a.mof:1:2: not UTF-8");
    EXPECT_EQ(LexerError("// \xC3\xA4\xC3"), "a.mof:1:6: not UTF-8");
    EXPECT_EQ(LexerError("/* \x80 */"), "a.mof:1:4: not UTF-8");
    EXPECT_EQ(LexerError("\xFF\xFE\"\x00"), "a.mof:1:1: unexpected character");
}

TEST(MofLexer, KeepsUtf8Text) {
    EXPECT_EQ(First("\"Gr\xC3\xB6\xC3\x9F"
                    "e\"")
                  .text,
              "Gr\xC3\xB6\xC3\x9F"
              "e");
}

TEST(MofLexer, ReadsNumbersOfEveryBase) {
    EXPECT_EQ(First("2010").magnitude, 2010U);
    EXPECT_EQ(First("0x1F").magnitude, 31U);
    EXPECT_EQ(First("017").magnitude, 15U);
    EXPECT_EQ(First("101b").magnitude, 5U);
    EXPECT_EQ(First("0").magnitude, 0U);
    EXPECT_EQ(First("18446744073709551615").magnitude, 18446744073709551615U);
}

TEST(MofLexer, KeepsTheSignApart) {
    EXPECT_TRUE(First("-7").negative);
    EXPECT_EQ(First("-7").magnitude, 7U);
    EXPECT_FALSE(First("+7").negative);
}

TEST(MofLexer, ReadsRealNumbers) {
    EXPECT_EQ(First("1.5").real, 1.5);
    EXPECT_EQ(First("-2.5e-1").real, -0.25);
    EXPECT_EQ(First("1.0E+2").real, 100.0);
    EXPECT_EQ(First("5.0e-324").real, std::numeric_limits<double>::denorm_min());
    EXPECT_TRUE(std::signbit(First("-0.0").real));
}

TEST(MofLexer, ReadsAliasesPragmasAndCharacters) {
    EXPECT_EQ(First("$Prov").kind, MofTokenKind::alias);
    EXPECT_EQ(First("$Prov").text, "Prov");
    EXPECT_EQ(First("#pragma namespace").kind, MofTokenKind::pragma);
    EXPECT_EQ(First("'A'").magnitude, 65U);
}

TEST(MofLexer, NamesThePlaceOfWhatIsNoToken) {
    EXPECT_EQ(LexerError("a\n @"), "a.mof:2:2: unexpected character");
    EXPECT_EQ(LexerError("a /* b"), "a.mof:1:3: comment without end");
    EXPECT_EQ(LexerError("\"abc"), "a.mof:1:1: text without closing quote");
    EXPECT_EQ(LexerError("\"abc\n\""), "a.mof:1:1: text without closing quote");
    EXPECT_EQ(LexerError("\"a\\qb\""), "a.mof:1:3: unknown escape");
    EXPECT_EQ(LexerError("\"a\\"), "a.mof:1:3: unknown escape");
    EXPECT_EQ(LexerError("\"\\xg\""), "a.mof:1:2: unknown escape");
    EXPECT_EQ(LexerError("'ab'"), "a.mof:1:1: one character expected between the quotes");
    EXPECT_EQ(LexerError("'a"), "a.mof:1:1: character without closing quote");
    EXPECT_EQ(LexerError("#include"), "a.mof:1:1: only #pragma may begin with #");
}

TEST(MofLexer, RefusesWhatIsNoNumber) {
    EXPECT_EQ(LexerError("18446744073709551616"),
              "a.mof:1:1: 18446744073709551616 is no number of 64 bits");
    EXPECT_EQ(LexerError("12abc"), "a.mof:1:1: 12abc is no number of 64 bits");
    EXPECT_EQ(LexerError("09"), "a.mof:1:1: 09 is no number of 64 bits");
    EXPECT_EQ(LexerError("1.2.3"), "a.mof:1:1: 1.2.3 is no number of 64 bits");
    EXPECT_EQ(LexerError("0x1.8"), "a.mof:1:1: 0x1.8 is no number of 64 bits");
    EXPECT_EQ(LexerError("1.0e400"), "a.mof:1:1: 1.0e400 is no number of 64 bits");
    EXPECT_EQ(LexerError("1.0e-400"), "a.mof:1:1: 1.0e-400 is no number of 64 bits");
}

}  // namespace
}  // namespace qv::test
