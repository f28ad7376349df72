#include "qvsata/view/SerialNumber.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using view::DecodedSerialNumber;
using view::SerialNumberText;

TEST(SerialNumber, IsDecodedFromTheCodesOfSwappedCharacters) {
    // "  WD1234": " ", " ", "D", "W", "2", "1", "4", "3".
    EXPECT_EQ(DecodedSerialNumber("2020445732313433"), "WD1234");
}

TEST(SerialNumber, IsDecodedWithoutSwappingIfSwappingPutsABlankInside) {
    // " WD12345": swapped, it is "W 1D3254".
    EXPECT_EQ(DecodedSerialNumber("2057443132333435"), "WD12345");
    // "AB CD 12": a blank is inside either way.
    EXPECT_EQ(DecodedSerialNumber("4142204344203132"), "BAC  D21");
}

TEST(SerialNumber, IsNotDecodedIfItIsShortOddOrNoText) {
    EXPECT_EQ(DecodedSerialNumber("202044573231"), std::nullopt);
    EXPECT_EQ(DecodedSerialNumber("20204457323134333"), std::nullopt);
    EXPECT_EQ(DecodedSerialNumber("HD-WX41A60T9921X"), std::nullopt);
    EXPECT_EQ(DecodedSerialNumber("0120445732313433"), std::nullopt);
}

TEST(SerialNumber, IsShownWithItsDecodedTextBesideIt) {
    EXPECT_EQ(SerialNumberText(" 2020445732313433 "), "2020445732313433 (WD1234)");
    EXPECT_EQ(SerialNumberText("  SN1 "), "SN1");
    EXPECT_EQ(SerialNumberText(" "), "-");
}

TEST(SerialNumber, IsNotReadableIfItIsEmptyAndWasNotRead) {
    EXPECT_EQ(view::SerialNumberSpan("S/N ", " ", false),
              (view::Span{"S/N not readable", view::Style::caution}));
    EXPECT_EQ(view::SerialNumberSpan("S/N ", "SN1", false), (view::Span{"S/N SN1"}));
    EXPECT_EQ(view::SerialNumberSpan("S/N ", "", true), (view::Span{"S/N -"}));
}

}  // namespace
}  // namespace qv::test
