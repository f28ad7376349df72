#include "platform/windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Status.h"

namespace qv::test {
namespace {

using ::testing::Property;
using ::testing::Throws;
using windows::ToNarrow;
using windows::ToUpper;
using windows::ToWide;

constexpr UINT western = 1252;
constexpr UINT missingCodePage = 9;

TEST(Text, ConvertsAsciiBothWays) {
    EXPECT_EQ(ToNarrow(L"IDE\\DISK 0~"), "IDE\\DISK 0~");
    EXPECT_EQ(ToWide("IDE\\DISK 0~"), L"IDE\\DISK 0~");
}

TEST(Text, ConvertsAnEmptyTextToAnEmptyText) {
    EXPECT_EQ(ToNarrow(L""), "");
    EXPECT_EQ(ToWide(""), L"");
    EXPECT_EQ(ToNarrow(std::wstring_view()), "");
    EXPECT_EQ(ToWide(std::string_view()), L"");
    EXPECT_EQ(ToUpper(L""), L"");
}

TEST(Text, KeepsNullCharactersInside) {
    using namespace std::string_literals;
    EXPECT_EQ(ToNarrow(L"a\0b"s), "a\0b"s);
    EXPECT_EQ(ToWide("a\0b"s), L"a\0b"s);
}

TEST(Text, ConvertsInTheCodePageGiven) {
    EXPECT_EQ(ToNarrow(L"Gr\u00F6\u00DFe", western),
              "Gr\xF6\xDF"
              "e");
    EXPECT_EQ(ToWide("Gr\xF6\xDF"
                     "e",
                     western),
              L"Gr\u00F6\u00DFe");
    EXPECT_EQ(ToNarrow(L"\u00F6", CP_UTF8), "\xC3\xB6");
    EXPECT_EQ(ToWide("\xC3\xB6", CP_UTF8), L"\u00F6");
}

TEST(Text, ReplacesACharacterThatTheCodePageLacks) {
    EXPECT_EQ(ToNarrow(L"a\u4E2D", western), "a?");
}

TEST(Text, RaisesTheSystemErrorOfAConversionThatFails) {
    EXPECT_THAT([] { ToNarrow(L"\u00F6", missingCodePage); },
                Throws<RequestError>(Property(&RequestError::status, Status{0x80070057})));
    EXPECT_THAT([] { ToWide("\xF6", missingCodePage); },
                Throws<RequestError>(Property(&RequestError::status, Status{0x80070057})));
}

TEST(Text, UpperCaseReachesBeyondAscii) {
    EXPECT_EQ(ToUpper(L"c:\\Logs\\gr\u00F6i"), L"C:\\LOGS\\GR\u00D6I");
}

}  // namespace
}  // namespace qv::test
