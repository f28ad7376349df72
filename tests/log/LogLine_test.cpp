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

TEST(LogLine, TakesPercentSignsAndCharactersOfAnyScript) {
    EXPECT_EQ(FormatLogLine(earlyMoment, LogLevel::debug, L"", L"%s%n\u00E9\u4E2D\U0001F600"),
              L"07/04/2024 09:05:03.007 [Debug] %s%n\u00E9\u4E2D\U0001F600\r\n");
}

TEST(LogLine, OfATextWithLineEndsIsOneLine) {
    EXPECT_EQ(FormatLogLine(earlyMoment, LogLevel::information, L"C::M",
                            L"A disk\r\n07/04/2024 09:05:03.008 [Error] forged"),
              L"07/04/2024 09:05:03.007 [Information] C::M| "
              L"A disk\\x0d\\x0a07/04/2024 09:05:03.008 [Error] forged\r\n");
}

TEST(LogLine, ShowsCharactersThatControlAReaderAsCodes) {
    EXPECT_EQ(LogText(L"\x1b[2J\u202e\u2028\x7f"), L"\\x1b[2J\\u202e\\u2028\\x7f");
    EXPECT_EQ(LogText(std::wstring_view(L"\0", 1)), L"\\x00");
}

TEST(LogLine, ShowsHalfACharacterAsACode) {
    EXPECT_EQ(LogText(L"a\xD83D"), L"a\\ud83d");
    EXPECT_EQ(LogText(L"\xDE00z"), L"\\ude00z");
}

TEST(LogLine, LeavesALongTextWholeUpToItsGreatestLength) {
    const std::wstring longest(4096, L'x');
    EXPECT_EQ(LogText(longest), longest);
}

TEST(LogLine, CutsALongerTextAndSaysHowMuchIsMissing) {
    EXPECT_EQ(LogText(std::wstring(10000, L'x')),
              std::wstring(4096, L'x') + L"... (5904 more characters)");
    EXPECT_EQ(LogText(std::wstring(4095, L'x') + L"\r"),
              std::wstring(4095, L'x') + L"... (1 more characters)");
}

}  // namespace
}  // namespace qv::test
