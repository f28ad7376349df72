#include "qvsata/cim/Utf8.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using namespace service;

// One character of each length: 1 to 4 bytes; the last is two units of UTF-16.
const std::string utf8 = "a\xD0\x96\xE7\xA3\x81\xF0\xA0\xAE\xB7z";
const std::wstring wide = L"aЖ磁𠮷z";

TEST(Utf8, BecomesWideCharacters) {
    EXPECT_EQ(ToWide(utf8), wide);
    EXPECT_EQ(ToWide(""), L"");
}

TEST(Utf8, IsMadeOfWideCharacters) {
    EXPECT_EQ(ToUtf8(wide), utf8);
    EXPECT_EQ(ToUtf8(L""), "");
}

TEST(Utf8, IsMadeOfUtf16) {
    EXPECT_EQ(Utf8OfUtf16(u"aЖ磁𠮷z"), utf8);
}

TEST(Utf8, IsNotMadeOfHalfACharacterOfUtf16) {
    EXPECT_EQ(Utf8OfUtf16({u"\xD842", 1}), std::nullopt);
    EXPECT_EQ(Utf8OfUtf16({u"a\xDFB7", 2}), std::nullopt);
    EXPECT_EQ(Utf8OfUtf16({u"\xD842z", 2}), std::nullopt);
}

}  // namespace
}  // namespace qv::test
