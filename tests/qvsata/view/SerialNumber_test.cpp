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

}  // namespace
}  // namespace qv::test
