#include "qvsata/view/text/Characters.h"

#include <gtest/gtest.h>

#include "qvsata/view/text/Columns.h"

namespace qv::test {
namespace {

struct Text {
    const char* name;
    std::string text;
    std::string printable;
};

class CharactersText : public testing::TestWithParam<Text> {};

TEST_P(CharactersText, IsPrintable) {
    EXPECT_EQ(view::Printable(GetParam().text), GetParam().printable);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, CharactersText,
    testing::Values(Text{"Plain", "Model A (Ä, 標準)", "Model A (Ä, 標準)"},
                    Text{"Escape", "\x1B[31m", R"(\x1b[31m)"},
                    Text{"LineFeed", "a\r\nb\tc", R"(a\x0d\x0ab\x09c)"},
                    Text{"Zero", std::string("a\0b", 3), R"(a\x00b)"},
                    Text{"Delete", "\x7F", R"(\x7f)"}, Text{"C1", "\xC2\x9B", R"(\x9b)"},
                    Text{"RightToLeft", "a\u202Eb\u2066", R"(a\u202eb\u2066)"},
                    Text{"LineSeparator", "\u2028", R"(\u2028)"},
                    Text{"LoneByte", "\xFF", R"(\xff)"},
                    Text{"CutCharacter", "\xE6\xA8", R"(\xe6\xa8)"},
                    Text{"LongForm", "\xC0\x80", R"(\xc0\x80)"},
                    Text{"Surrogate", "\xED\xA0\x80", R"(\xed\xa0\x80)"},
                    Text{"BeyondUnicode", "\xF4\x90\x80\x80", R"(\xf4\x90\x80\x80)"},
                    Text{"Emoji", "\U0001F4BE", "\U0001F4BE"}),
    [](const auto& row) { return row.param.name; });

struct Wide {
    const char* name;
    const char* text;
    std::size_t columns;
};

class CharactersWidth : public testing::TestWithParam<Wide> {};

TEST_P(CharactersWidth, IsThatOfATerminal) {
    EXPECT_EQ(view::WidthOf(GetParam().text), GetParam().columns);
}

INSTANTIATE_TEST_SUITE_P(Texts, CharactersWidth,
                         testing::Values(Wide{"Latin", "Größe", 5}, Wide{"Japanese", "標準", 4},
                                         Wide{"HalfWidthKatakana", "ｱ", 1},
                                         Wide{"Combining", "e\u0301", 1},
                                         Wide{"Emoji", "\U0001F4BE", 2}, Wide{"Tree", "└─", 2},
                                         Wide{"Cyrillic", "СЕРВЕР", 6}),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace qv::test
