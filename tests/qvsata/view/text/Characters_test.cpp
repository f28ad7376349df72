#include "qvsata/view/text/Characters.h"

#include <gtest/gtest.h>

#include "qvsata/view/text/Columns.h"

namespace qv::test {
namespace {

struct DeviceText {
    const char* name;
    std::string text;
    std::string printable;
};

class CharactersText : public testing::TestWithParam<DeviceText> {};

TEST_P(CharactersText, IsPrintable) {
    EXPECT_EQ(view::Printable(GetParam().text), GetParam().printable);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, CharactersText,
    testing::Values(DeviceText{"Plain", "Model A (Ä, 標準)", "Model A (Ä, 標準)"},
                    DeviceText{"Escape", "\x1B[31m", R"(\x1b[31m)"},
                    DeviceText{"LineFeed", "a\r\nb\tc", R"(a\x0d\x0ab\x09c)"},
                    DeviceText{"Zero", std::string("a\0b", 3), R"(a\x00b)"},
                    DeviceText{"Delete", "\x7F", R"(\x7f)"},
                    DeviceText{"C1", "\xC2\x9B", R"(\x9b)"},
                    DeviceText{"RightToLeft", "a\u202Eb\u2066", R"(a\u202eb\u2066)"},
                    DeviceText{"LineSeparator", "\u2028", R"(\u2028)"},
                    DeviceText{"Invisible", "a\u200Bb\u00AD", R"(a\u200bb\xad)"},
                    DeviceText{"LoneByte", "\xFF", R"(\xff)"},
                    DeviceText{"CutCharacter", "\xE6\xA8", R"(\xe6\xa8)"},
                    DeviceText{"LongForm", "\xC0\x80", R"(\xc0\x80)"},
                    DeviceText{"Surrogate", "\xED\xA0\x80", R"(\xed\xa0\x80)"},
                    DeviceText{"BeyondUnicode", "\xF4\x90\x80\x80", R"(\xf4\x90\x80\x80)"},
                    DeviceText{"Emoji", "\U0001F4BE", "\U0001F4BE"}),
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

TEST(Beginning, OfATextThatIsShortEnoughIsTheText) {
    EXPECT_EQ(view::Beginning("ab円", 5), "ab円");
    EXPECT_EQ(view::Beginning("", 5), "");
}

TEST(Beginning, EndsBetweenCharacters) {
    EXPECT_EQ(view::Beginning("ab円c", 4), "ab");
    EXPECT_EQ(view::Beginning("ab円c", 5), "ab円");
    EXPECT_EQ(view::Beginning("円円", 2), "");
}

TEST(Shortened, KeepsATextThatIsShortEnough) {
    EXPECT_EQ(view::Shortened("abcdef", {6, 2, 1}), "abcdef");
    EXPECT_EQ(view::Shortened("", {6, 2, 1}), "");
}

TEST(Shortened, KeepsTheBeginningAndTheEndOfALongerText) {
    EXPECT_EQ(view::Shortened("abcdefg", {6, 2, 1}), "ab ... g");
    EXPECT_EQ(view::Shortened("円円円", {8, 4, 5}), "円 ... 円");
    EXPECT_EQ(view::Shortened("円円円", {8, 2, 2}), " ... ");
}

}  // namespace
}  // namespace qv::test
