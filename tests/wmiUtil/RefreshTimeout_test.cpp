#include "wmiUtil/RefreshTimeout.h"
#include "tests/support/windows/LogFiles.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace qv::test {
namespace {

class RefreshTimeoutTest : public ::testing::Test {
protected:
    void StoreBytes(std::string_view bytes, DWORD type = REG_BINARY) {
        registry.SetBytes(refreshTimeoutKey, L"RefreshTimeout", type,
                          std::as_bytes(std::span(bytes)));
    }

    ScratchRegistry registry;
};

TEST_F(RefreshTimeoutTest, IsZeroWithoutTheKey) {
    EXPECT_EQ(ReadRefreshTimeout(), 0U);
}

TEST_F(RefreshTimeoutTest, IsZeroWithoutTheValue) {
    registry.CreateKey(refreshTimeoutKey);
    EXPECT_EQ(ReadRefreshTimeout(), 0U);
}

TEST_F(RefreshTimeoutTest, IsTheFirstDigitOfAText) {
    registry.SetText(refreshTimeoutKey, L"RefreshTimeout", L"60");
    EXPECT_EQ(ReadRefreshTimeout(), 6U);
}

TEST_F(RefreshTimeoutTest, IsZeroForATextThatDoesNotBeginWithADigit) {
    registry.SetText(refreshTimeoutKey, L"RefreshTimeout", L"x60");
    EXPECT_EQ(ReadRefreshTimeout(), 0U);
    registry.SetText(refreshTimeoutKey, L"RefreshTimeout", L"");
    EXPECT_EQ(ReadRefreshTimeout(), 0U);
}

TEST_F(RefreshTimeoutTest, IsZeroForMostNumbers) {
    registry.SetNumber(refreshTimeoutKey, L"RefreshTimeout", 60000);
    EXPECT_EQ(ReadRefreshTimeout(), 0U);
}

TEST_F(RefreshTimeoutTest, IsTheDigitThatANumbersFirstByteHappensToBe) {
    registry.SetNumber(refreshTimeoutKey, L"RefreshTimeout", 0x37);
    EXPECT_EQ(ReadRefreshTimeout(), 7U);
}

TEST_F(RefreshTimeoutTest, IsEveryDigitOfANumberWhoseBytesAreDigits) {
    registry.SetNumber(refreshTimeoutKey, L"RefreshTimeout", 0x34333231);
    EXPECT_EQ(ReadRefreshTimeout(), 1234U);
}

TEST_F(RefreshTimeoutTest, EndsAtTheFirstByteThatIsNoDigit) {
    StoreBytes("90s5");
    EXPECT_EQ(ReadRefreshTimeout(), 90U);
}

TEST_F(RefreshTimeoutTest, IsZeroForAValueOfNoBytes) {
    StoreBytes("");
    EXPECT_EQ(ReadRefreshTimeout(), 0U);
}

TEST_F(RefreshTimeoutTest, ReadsValuesOfUpTo255Bytes) {
    StoreBytes(std::string(254, '0') + "8");
    EXPECT_EQ(ReadRefreshTimeout(), 8U);
}

TEST_F(RefreshTimeoutTest, IsZeroForALongerValue) {
    StoreBytes("8" + std::string(255, 'x'));
    EXPECT_EQ(ReadRefreshTimeout(), 0U);
    registry.SetText(refreshTimeoutKey, L"RefreshTimeout", std::wstring(127, L'6'));
    EXPECT_EQ(ReadRefreshTimeout(), 0U);
}

TEST_F(RefreshTimeoutTest, IsTheLargestNumberForMoreDigitsThanItHolds) {
    StoreBytes("4294967296");
    EXPECT_EQ(ReadRefreshTimeout(), 4294967295U);
}

}  // namespace
}  // namespace qv::test
