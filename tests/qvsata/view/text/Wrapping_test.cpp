#include "qvsata/view/text/Wrapping.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using view::PlainText;
using view::Span;
using view::Style;
using view::StyledText;
using view::Wrapped;

std::string Lines(const std::string& text, std::optional<std::size_t> columns) {
    return PlainText(Wrapped({{text}}, columns));
}

TEST(Wrapping, LeavesALineThatFits) {
    EXPECT_EQ(Lines("one  two\n", 8), "one  two\n");
}

TEST(Wrapping, BreaksALineAtBlanksOnly) {
    EXPECT_EQ(Lines("one two three\n", 9), "one two\n    three\n");
}

TEST(Wrapping, GoesOnToTheRightOfTheLinesBegin) {
    EXPECT_EQ(Lines("  one two three\nfour\n", 9), "  one two\n      three\nfour\n");
}

TEST(Wrapping, KeepsAWordThatIsLongerThanALine) {
    EXPECT_EQ(Lines("a PCI\\VEN_8086 b\n", 8), "a\n    PCI\\VEN_8086\n    b\n");
}

TEST(Wrapping, KeepsLinesWithoutATerminal) {
    EXPECT_EQ(Lines("one two three\n", std::nullopt), "one two three\n");
}

TEST(Wrapping, KeepsStylesAndWordsOfSeveralStyles) {
    EXPECT_EQ(Wrapped({{"one "}, {"two", Style::good}, {"three"}, {"\n"}}, 8),
              (StyledText{{"one\n    "}, {"two", Style::good}, {"three\n"}}));
}

TEST(Wrapping, KeepsWordsOfOneStyleTogether) {
    EXPECT_EQ(Wrapped({{"a  "}, {"! Pred Fail", Style::caution}, {"  b\n"}}, 80),
              (StyledText{{"a  "}, {"! Pred Fail", Style::caution}, {"  b\n"}}));
}

TEST(Wrapping, KeepsAWordThatTakesNoColumn) {
    EXPECT_EQ(Lines("a \u0301 b", 80), "a \u0301 b");
    EXPECT_EQ(Lines("a \u0301", 80), "a \u0301");
}

TEST(Wrapping, CountsColumnsNotBytes) {
    EXPECT_EQ(Lines("標準 標準\n", 9), "標準 標準\n");
    EXPECT_EQ(Lines("標準 標準\n", 8), "標準\n    標準\n");
}

}  // namespace
}  // namespace qv::test
