#include "wmiUtil/RefreshTimeout.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/windows/log/ScratchRegistry.h"

namespace qv {
namespace {

constexpr auto path = L"SOFTWARE\\Corvane\\WMI Providers\\SA";

class RefreshTimeout : public ::testing::Test {
protected:
    void StoreBytes(std::string_view bytes, DWORD type = REG_BINARY) {
        registry.SetBytes(path, L"RefreshTimeout", type, std::as_bytes(std::span(bytes)));
    }

    qv::testing::ScratchRegistry registry;
};

TEST_F(RefreshTimeout, IsZeroWithoutTheKey) {
    EXPECT_EQ(ReadRefreshTimeout(), 0U);
}

TEST_F(RefreshTimeout, IsZeroWithoutTheValue) {
    registry.CreateKey(path);
    EXPECT_EQ(ReadRefreshTimeout(), 0U);
}

TEST_F(RefreshTimeout, IsTheFirstDigitOfAText) {
    registry.SetText(path, L"RefreshTimeout", L"60");
    EXPECT_EQ(ReadRefreshTimeout(), 6U);
}

TEST_F(RefreshTimeout, IsZeroForATextThatDoesNotBeginWithADigit) {
    registry.SetText(path, L"RefreshTimeout", L"x60");
    EXPECT_EQ(ReadRefreshTimeout(), 0U);
    registry.SetText(path, L"RefreshTimeout", L"");
    EXPECT_EQ(ReadRefreshTimeout(), 0U);
}

TEST_F(RefreshTimeout, IsZeroForMostNumbers) {
    registry.SetNumber(path, L"RefreshTimeout", 60000);
    EXPECT_EQ(ReadRefreshTimeout(), 0U);
}

TEST_F(RefreshTimeout, IsTheDigitThatANumbersFirstByteHappensToBe) {
    registry.SetNumber(path, L"RefreshTimeout", 0x37);
    EXPECT_EQ(ReadRefreshTimeout(), 7U);
}

TEST_F(RefreshTimeout, IsEveryDigitOfANumberWhoseBytesAreDigits) {
    registry.SetNumber(path, L"RefreshTimeout", 0x34333231);
    EXPECT_EQ(ReadRefreshTimeout(), 1234U);
}

TEST_F(RefreshTimeout, EndsAtTheFirstByteThatIsNoDigit) {
    StoreBytes("90s5");
    EXPECT_EQ(ReadRefreshTimeout(), 90U);
}

TEST_F(RefreshTimeout, IsZeroForAValueOfNoBytes) {
    StoreBytes("");
    EXPECT_EQ(ReadRefreshTimeout(), 0U);
}

TEST_F(RefreshTimeout, ReadsValuesOfUpTo255Bytes) {
    StoreBytes(std::string(254, '0') + "8");
    EXPECT_EQ(ReadRefreshTimeout(), 8U);
}

TEST_F(RefreshTimeout, IsZeroForALongerValue) {
    StoreBytes("8" + std::string(255, 'x'));
    EXPECT_EQ(ReadRefreshTimeout(), 0U);
    registry.SetText(path, L"RefreshTimeout", std::wstring(127, L'6'));
    EXPECT_EQ(ReadRefreshTimeout(), 0U);
}

TEST_F(RefreshTimeout, IsTheLargestNumberForMoreDigitsThanItHolds) {
    StoreBytes("4294967296");
    EXPECT_EQ(ReadRefreshTimeout(), 4294967295U);
}

}  // namespace
}  // namespace qv
