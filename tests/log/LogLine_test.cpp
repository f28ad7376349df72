#include "log/LogLine.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

constexpr SYSTEMTIME earlyMoment = {.wYear = 2024,
                                    .wMonth = 7,
                                    .wDayOfWeek = 4,
                                    .wDay = 4,
                                    .wHour = 9,
                                    .wMinute = 5,
                                    .wSecond = 3,
                                    .wMilliseconds = 7};

TEST(LogLine, NameOfIsTheNameOfEachLevel) {
    EXPECT_EQ(NameOf(LogLevel{0}), L"N/A");
    EXPECT_EQ(NameOf(LogLevel{1}), L"Debug");
    EXPECT_EQ(NameOf(LogLevel{2}), L"Verbose");
    EXPECT_EQ(NameOf(LogLevel{3}), L"Information");
    EXPECT_EQ(NameOf(LogLevel{4}), L"Warning");
    EXPECT_EQ(NameOf(LogLevel{5}), L"Error");
}

TEST(LogLine, NameOfIsNotAvailableForWhatIsNoLevel) {
    EXPECT_EQ(NameOf(LogLevel{6}), L"N/A");
    EXPECT_EQ(NameOf(LogLevel::silent), L"N/A");
}

TEST(LogLine, PadsTheTimeWithZeros) {
    EXPECT_EQ(FormatTime(earlyMoment, '.'), "07/04/2024 09:05:03.007");
    EXPECT_EQ(FormatTime(earlyMoment, ':'), "07/04/2024 09:05:03:007");
}

TEST(LogLine, WritesALateTimeInFull) {
    SYSTEMTIME lateMoment = earlyMoment;
    lateMoment.wMonth = 12;
    lateMoment.wDay = 31;
    lateMoment.wHour = 23;
    lateMoment.wMinute = 59;
    lateMoment.wSecond = 58;
    lateMoment.wMilliseconds = 999;
    EXPECT_EQ(FormatTime(lateMoment, '.'), "12/31/2024 23:59:58.999");
}

TEST(LogLine, NamesLevelAndFunctionBeforeTheMessage) {
    EXPECT_EQ(FormatLogLine(earlyMoment, LogLevel::information, L"CQVWMISATA_InstProv::Initialize",
                            L"Entering Initialize"),
              L"07/04/2024 09:05:03.007 [Information] CQVWMISATA_InstProv::Initialize| Entering "
              L"Initialize\r\n");
}

TEST(LogLine, IsTheMessageAloneWithoutAFunction) {
    EXPECT_EQ(FormatLogLine(earlyMoment, LogLevel::error, L"", L"Message"),
              L"07/04/2024 09:05:03.007 [Error] Message\r\n");
}

TEST(LogLine, TakesTextsOfAnyLengthAndPercentSigns) {
    const std::wstring message = std::wstring(10000, L'x') + L"%s%n\u00E9";
    EXPECT_EQ(FormatLogLine(earlyMoment, LogLevel::debug, L"", message),
              L"07/04/2024 09:05:03.007 [Debug] " + message + L"\r\n");
}

}  // namespace
}  // namespace qv::test
