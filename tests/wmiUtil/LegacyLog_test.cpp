#include "wmiUtil/LegacyLog.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>

#include "log/LogFile.h"
#include "tests/support/windows/LogFiles.h"
#include "tests/support/windows/LogTimes.h"

namespace qv::test {
namespace {

constexpr auto prefix = "QVWMISATA::CQVWMISATA_EventProv::";
constexpr auto defaultFile = L"C:\\windows\\system32\\wbem\\logs\\qvwbems.log";

/// Returns whether the log writes a line of that severity to that file; restores the file.
bool Writes(const LegacyLog& log, const std::wstring& to, LogLevel severity = LogLevel::error) {
    const bool existed = std::filesystem::exists(to);
    const std::string before = existed ? ReadBytesOf(to) : "";
    log.CommonLogEntry("text", severity);
    const std::string after = std::filesystem::exists(to) ? ReadBytesOf(to) : "";
    if (existed) {
        WriteBytesTo(to, before);
    } else {
        std::filesystem::remove(to);
    }
    return after.size() > before.size();
}

class LegacyLogTest : public ::testing::Test {
protected:
    LegacyLogTest() { registry.SetText(legacyLogKey, L"LOGFILENAME", file); }

    ScratchFolder folder;
    ScratchRegistry registry;
    std::wstring file = folder.File(L"legacy.log");
};

TEST_F(LegacyLogTest, HasItsDefaultsWithoutTheKey) {
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, legacyLogKey);
    const LegacyLog log(prefix);
    EXPECT_FALSE(Writes(log, defaultFile, LogLevel::verbose));
    EXPECT_TRUE(Writes(log, defaultFile, LogLevel::information));
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_EQ(log.Type(), 0U);
}

TEST_F(LegacyLogTest, TakesItsSettingsFromTheRegistry) {
    registry.SetNumber(legacyLogKey, L"LEVEL", 5);
    registry.SetNumber(legacyLogKey, L"TYPE", 2);
    const LegacyLog log(prefix);
    EXPECT_FALSE(Writes(log, file, LogLevel::warning));
    EXPECT_TRUE(Writes(log, file, LogLevel::error));
    EXPECT_EQ(log.Type(), 2U);
}

TEST_F(LegacyLogTest, KeepsDefaultsInPlaceOfValuesOfTheWrongTypeOrSize) {
    registry.SetNumber(legacyLogKey, L"LOGFILENAME", 1);
    registry.SetText(legacyLogKey, L"LEVEL", L"5");
    registry.SetBytes(legacyLogKey, L"TYPE", REG_DWORD, {});
    const LegacyLog log(prefix);
    EXPECT_FALSE(Writes(log, defaultFile, LogLevel::verbose));
    EXPECT_TRUE(Writes(log, defaultFile, LogLevel::information));
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_EQ(log.Type(), 0U);
}

TEST_F(LegacyLogTest, KeepsItsDefaultFileInPlaceOfAnEmptyName) {
    registry.SetText(legacyLogKey, L"LOGFILENAME", L"");
    EXPECT_TRUE(Writes(LegacyLog(prefix), defaultFile));
}

TEST_F(LegacyLogTest, TakesAFileNameThatNothingTerminates) {
    registry.SetBytes(legacyLogKey, L"LOGFILENAME", REG_SZ,
                      std::as_bytes(std::span(std::wstring_view(file))));
    EXPECT_TRUE(Writes(LegacyLog(prefix), file));
}

TEST_F(LegacyLogTest, CreatesItsFileWithTheFirstLine) {
    const LegacyLog log(prefix);
    EXPECT_FALSE(std::filesystem::exists(file));
    log.CommonLogEntry("text", LogLevel::information);
    EXPECT_TRUE(std::filesystem::exists(file));
}

TEST_F(LegacyLogTest, WritesNarrowLinesWithTheLocalTimeBehindABlank) {
    const LegacyLog log(prefix);
    const std::uint64_t before = LocalTimeNow();
    log.CommonLogEntry("SendIndication for EventID = 600", LogLevel::information);
    const std::uint64_t after = LocalTimeNow();
    const std::string line = ReadBytesOf(file);
    std::smatch match;
    ASSERT_TRUE(
        std::regex_match(line, match,
                         std::regex(R"( \[(\d\d)/(\d\d)/(\d{4}) (\d\d):(\d\d):(\d\d):(\d{3})\] )"
                                    R"(\[QVWMISATA::CQVWMISATA_EventProv::\] - )"
                                    "SendIndication for EventID = 600\r\n")));
    EXPECT_LE(before, TimeOf(match));
    EXPECT_GE(after, TimeOf(match));
}

TEST_F(LegacyLogTest, KeepsATextThatEndsALineInItsOwnLine) {
    LegacyLog(prefix).CommonLogEntry("a\r\n [forged\x1b\xe9", LogLevel::error);
    EXPECT_TRUE(std::regex_match(
        ReadBytesOf(file), std::regex(" [^\r]*\\] - a\\\\x0d\\\\x0a \\[forged\\\\x1b\xe9\r\n")));
}

TEST_F(LegacyLogTest, CutsALongText) {
    LegacyLog(prefix).CommonLogEntry(std::string(5000, 'x'), LogLevel::error);
    EXPECT_TRUE(ReadBytesOf(file).ends_with("] - " + std::string(4096, 'x') +
                                            "... (904 more characters)\r\n"));
}

TEST_F(LegacyLogTest, AppendsToWhatIsThere) {
    WriteBytesTo(file, "older\r\n");
    const LegacyLog log(prefix);
    log.CommonLogEntry("one", LogLevel::information);
    log.CommonLogEntry("two", LogLevel::information);
    EXPECT_TRUE(std::regex_match(ReadBytesOf(file),
                                 std::regex("older\r\n [^\r]* - one\r\n [^\r]* - two\r\n")));
}

TEST_F(LegacyLogTest, WritesLinesWhoseSeverityIsNotBelowItsLevel) {
    registry.SetNumber(legacyLogKey, L"LEVEL", 4);
    const LegacyLog log(prefix);
    log.CommonLogEntry("below", LogLevel::information);
    EXPECT_FALSE(std::filesystem::exists(file));
    log.CommonLogEntry("equal", LogLevel::warning);
    log.CommonLogEntry("above", LogLevel::error);
    EXPECT_TRUE(
        std::regex_match(ReadBytesOf(file), std::regex(" [^\r]*equal\r\n [^\r]*above\r\n")));
}

TEST_F(LegacyLogTest, WritesWhileOthersReadAndWrite) {
    const LegacyLog log(prefix);
    const windows::FileHandle other = OpenLogFile(file);
    log.CommonLogEntry("text", LogLevel::information);
    EXPECT_NE(ReadBytesOf(file), "");
}

TEST_F(LegacyLogTest, LosesALineThatCannotBeWrittenAndGoesOn) {
    const LegacyLog log(prefix);
    std::filesystem::create_directory(file);
    log.CommonLogEntry("lost", LogLevel::information);
    std::filesystem::remove(file);
    log.CommonLogEntry("written", LogLevel::information);
    EXPECT_TRUE(std::regex_match(ReadBytesOf(file), std::regex(" [^\r]*written\r\n")));
}

TEST_F(LegacyLogTest, CreatesNoFolder) {
    registry.SetText(legacyLogKey, L"LOGFILENAME", folder.File(L"missing\\legacy.log"));
    LegacyLog(prefix).CommonLogEntry("lost", LogLevel::information);
    EXPECT_EQ(folder.FileCount(), 0U);
}

}  // namespace
}  // namespace qv::test
