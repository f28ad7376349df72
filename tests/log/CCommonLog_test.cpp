#include "log/CCommonLog.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <thread>
#include <vector>

#include "log/LogFile.h"
#include "log/LogMutex.h"
#include "log/LogPlace.h"
#include "tests/support/windows/DeniedMutex.h"
#include "tests/support/windows/LogFiles.h"
#include "tests/support/windows/LogTimes.h"
#include "tests/support/windows/Threads.h"

namespace qv::test {
namespace {

constexpr std::uint32_t smallestLimit = 0x80000;

/// A log in a folder of its own, module "TestMod", level 2, the smallest size limit.
class CCommonLogTest : public ::testing::Test {
protected:
    CCommonLogTest() {
        registry.SetText(commonLogKey, L"LogFolder", folder.Path());
        registry.SetNumber(commonLogKey, L"LogLevel", 2);
        registry.SetNumber(commonLogKey, L"LogMaxSize", smallestLimit);
    }
    ~CCommonLogTest() override { std::filesystem::remove(fallbackFile); }

    std::wstring MutexName() const { return LogMutexName(folder.Path(), L"TestMod"); }

    ScratchRegistry registry;
    ScratchFolder folder;
    std::wstring file = folder.File(L"TestMod.log");
    std::wstring previous = folder.File(L"TestMod.lo_");
    std::wstring fallbackFile = DefaultLogFolder() + L"TestMod.log";
    CCommonLog log;
};

TEST_F(CCommonLogTest, AnnouncesItsInitialisation) {
    EXPECT_EQ(log.LogInit(L"TestMod"), 0U);
    EXPECT_EQ(log.Module(), L"TestMod");
    EXPECT_EQ(log.Level(), LogLevel::verbose);
    const std::vector<std::wstring> lines = ReadLinesOf(file);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(TextOf(lines[0]),
              L"[Information] !CCommonLog::LogInit| A logging interface is initialized "
              L"(Module=\"TestMod\", Level=Verbose, size=524288)");
}

TEST_F(CCommonLogTest, WritesToTheManagementServicesFolderWithoutSettings) {
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, commonLogKey);
    EXPECT_EQ(log.LogInit(L"TestMod"), 0U);
    const std::vector<std::wstring> lines =
        ReadLinesOf(L"C:\\windows\\system32\\wbem\\logs\\TestMod.log");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(TextOf(lines[0]),
              L"[Information] !CCommonLog::LogInit| A logging interface is initialized "
              L"(Module=\"TestMod\", Level=Information, size=2097152)");
}

TEST_F(CCommonLogTest, TellsOfInvalidSettingsAndWorksAllTheSame) {
    registry.SetNumber(commonLogKey, L"LogLevel", 6);
    EXPECT_EQ(log.LogInit(L"TestMod"), 87U);
    EXPECT_EQ(log.Level(), LogLevel::information);
    EXPECT_EQ(log.LogEntry(L"F", LogLevel::error, L"text"), 0U);
    EXPECT_EQ(ReadLinesOf(file).size(), 2U);
}

TEST_F(CCommonLogTest, TakesTheLevelOfItsComponent) {
    registry.SetNumber(commonLogKey, L"LogLevel (TESTMOD)", 3);
    registry.SetNumber(commonLogKey, L"LogLevel (TESTMOD:PART)", 5);
    EXPECT_EQ(log.LogInit(L"TestMod", L"Part"), 0U);
    EXPECT_EQ(log.Level(), LogLevel::error);
}

TEST_F(CCommonLogTest, FallsBackWhenTheFolderDoesNotExist) {
    registry.SetText(commonLogKey, L"LogFolder", folder.File(L"missing"));
    EXPECT_EQ(log.LogInit(L"TestMod"), 0U);
    EXPECT_EQ(ReadLinesOf(fallbackFile).size(), 1U);
}

TEST_F(CCommonLogTest, FallsBackWhenTheFileCannotBeWritten) {
    std::filesystem::create_directory(file);
    EXPECT_EQ(log.LogInit(L"TestMod"), 0U);
    EXPECT_EQ(ReadLinesOf(fallbackFile).size(), 1U);
}

TEST_F(CCommonLogTest, NamesTheMutexOfTheFallbackAfterTheFallback) {
    registry.SetText(commonLogKey, L"LogFolder", folder.File(L"missing"));
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    EXPECT_TRUE(windows::KernelHandle(
        OpenMutexW(SYNCHRONIZE, FALSE, L"Global\\C:WINDOWSSYSTEM32WBEMLOGSTESTMOD")));
}

TEST_F(CCommonLogTest, GivesUpWhenTheFallbackFailsToo) {
    std::filesystem::create_directory(file);
    std::filesystem::create_directory(fallbackFile);
    const std::uint32_t error = log.LogInit(L"TestMod");
    EXPECT_NE(error, 0U);
    EXPECT_NE(error, 87U);
    EXPECT_EQ(log.LogEntry(L"F", LogLevel::error, L"text"), DWORD{ERROR_INVALID_HANDLE});
}

TEST_F(CCommonLogTest, FallsSilentWithoutItsMutex) {
    const windows::KernelHandle event(CreateEventW(nullptr, TRUE, FALSE, MutexName().c_str()));
    EXPECT_EQ(log.LogInit(L"TestMod"), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_EQ(log.Module(), L"QVCommonLog_MutexError");
    EXPECT_EQ(static_cast<std::uint32_t>(log.Level()), 1024U);
    EXPECT_EQ(log.LogEntry(L"F", LogLevel::error, L"text"), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_EQ(ReadBytesOf(file), "");
}

TEST_F(CCommonLogTest, FallsSilentWhereItsMutexIsDenied) {
    const DeniedMutex denied(MutexName().c_str());
    EXPECT_EQ(log.LogInit(L"TestMod"), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_EQ(log.Level(), LogLevel::silent);
    EXPECT_EQ(ReadBytesOf(file), "");
}

TEST_F(CCommonLogTest, WorksAgainAfterAResetThatFindsTheMutexsNameFree) {
    windows::KernelHandle event(CreateEventW(nullptr, TRUE, FALSE, MutexName().c_str()));
    ASSERT_NE(log.LogInit(L"TestMod"), 0U);
    event.Reset();
    EXPECT_EQ(log.LogReset(), 0U);
    EXPECT_EQ(log.Module(), L"TestMod");
    EXPECT_EQ(log.Level(), LogLevel::verbose);
    EXPECT_EQ(ReadLinesOf(file).size(), 1U);
}

TEST_F(CCommonLogTest, ClosesTheMutexHeldFromBeforeWhenItIsInitialisedAgain) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    ASSERT_EQ(log.LogInit(L"Other"), 0U);
    EXPECT_FALSE(windows::KernelHandle(OpenMutexW(SYNCHRONIZE, FALSE, MutexName().c_str())));
    EXPECT_EQ(log.Module(), L"Other");
    EXPECT_EQ(ReadLinesOf(folder.File(L"Other.log")).size(), 1U);
}

TEST_F(CCommonLogTest, RefusesLinesBeforeItsInitialisation) {
    EXPECT_EQ(log.LogEntry(L"F", LogLevel::error, L"text"), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_EQ(log.Module(), L"");
}

TEST_F(CCommonLogTest, ResetReadsLevelAndSizeAgainAndSaysSo) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    registry.SetNumber(commonLogKey, L"LogLevel", 4);
    registry.SetNumber(commonLogKey, L"LogMaxSize", 0x90000);
    EXPECT_EQ(log.LogReset(), 0U);
    EXPECT_EQ(log.Level(), LogLevel::warning);
    const std::vector<std::wstring> lines = ReadLinesOf(file);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(TextOf(lines[1]),
              L"[Information] !CCommonLog::LogReset| A logging interface is updated "
              L"(Module=\"TestMod\", Level=Warning, size=589824)");
}

TEST_F(CCommonLogTest, ResetKeepsTheFolder) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    const ScratchFolder other;
    registry.SetText(commonLogKey, L"LogFolder", other.Path());
    EXPECT_EQ(log.LogReset(), 0U);
    EXPECT_EQ(ReadLinesOf(file).size(), 2U);
    EXPECT_EQ(other.FileCount(), 0U);
}

TEST_F(CCommonLogTest, ResetReturnsToTheDefaultsWhenTheSettingsAreGone) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, commonLogKey);
    EXPECT_EQ(log.LogReset(), 0U);
    EXPECT_EQ(log.Level(), LogLevel::information);
}

TEST_F(CCommonLogTest, ResetTellsOfInvalidSettings) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    registry.SetNumber(commonLogKey, L"LogLevel", 6);
    EXPECT_EQ(log.LogReset(), 87U);
    EXPECT_EQ(ReadLinesOf(file).size(), 2U);
}

TEST_F(CCommonLogTest, ResetStaysSilentWithoutItsMutex) {
    const windows::KernelHandle event(CreateEventW(nullptr, TRUE, FALSE, MutexName().c_str()));
    ASSERT_NE(log.LogInit(L"TestMod"), 0U);
    EXPECT_EQ(log.LogReset(), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_EQ(log.Level(), LogLevel::silent);
}

TEST_F(CCommonLogTest, ResetBeforeInitialisationIsAnInvalidParameter) {
    EXPECT_EQ(log.LogReset(), 87U);
}

TEST_F(CCommonLogTest, WritesLinesWithTheLocalTime) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    const std::uint64_t before = LocalTimeNow();
    EXPECT_EQ(log.LogEntry(L"C::M", LogLevel::error, L"It failed"), 0U);
    const std::uint64_t after = LocalTimeNow();
    const std::wstring line = ReadLinesOf(file).back();
    std::wsmatch match;
    ASSERT_TRUE(std::regex_match(
        line, match,
        std::wregex(LR"((\d\d)/(\d\d)/(\d{4}) (\d\d):(\d\d):(\d\d)\.(\d{3}) \[Error\] C::M\| It )"
                    LR"(failed)")));
    EXPECT_LE(before, TimeOf(match));
    EXPECT_GE(after, TimeOf(match));
}

TEST_F(CCommonLogTest, WritesTwoByteCharactersWithoutAMarkOrATerminator) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    const std::size_t before = ReadBytesOf(file).size();
    ASSERT_EQ(log.LogEntry(L"", LogLevel::debug, L"\u4E2D!"), 0U);
    const std::string bytes = ReadBytesOf(file);
    const char first = bytes[0];
    EXPECT_TRUE(first == '0' || first == '1');
    const std::string line = bytes.substr(before);
    EXPECT_EQ(line.size(), 2 * std::string_view("07/04/2024 09:05:03.007 [Debug] 12\r\n").size());
    using namespace std::string_literals;
    EXPECT_EQ(line.substr(line.size() - 10), " \0\x2D\x4E!\0\r\0\n\0"s);
}

TEST_F(CCommonLogTest, WritesEveryLevelThatItIsGiven) {
    registry.SetNumber(commonLogKey, L"LogLevel", 5);
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    EXPECT_EQ(log.LogEntry(L"", LogLevel::debug, L"text"), 0U);
    EXPECT_EQ(TextOf(ReadLinesOf(file).back()), L"[Debug] text");
}

TEST_F(CCommonLogTest, AppendsToWhatIsThere) {
    WriteBytesTo(file, "ab");
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    EXPECT_EQ(ReadBytesOf(file).substr(0, 2), "ab");
}

TEST_F(CCommonLogTest, BeginsANewFileBeforeTheLineThatFindsTheLimitReached) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    WriteBytesTo(previous, "older");
    std::filesystem::resize_file(file, smallestLimit);
    EXPECT_EQ(log.LogEntry(L"", LogLevel::error, L"first of the new"), 0U);
    EXPECT_EQ(std::filesystem::file_size(previous), smallestLimit);
    const std::vector<std::wstring> lines = ReadLinesOf(file);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(TextOf(lines[0]), L"[Error] first of the new");
}

TEST_F(CCommonLogTest, StaysInAFileThatIsOneByteBelowTheLimit) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    std::filesystem::resize_file(file, smallestLimit - 1);
    EXPECT_EQ(log.LogEntry(L"", LogLevel::error, L"text"), 0U);
    EXPECT_GT(std::filesystem::file_size(file), smallestLimit);
    EXPECT_FALSE(std::filesystem::exists(previous));
}

TEST_F(CCommonLogTest, AppendsToTheOldFileWhenItCannotBeRenamed) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    std::filesystem::create_directory(previous);
    std::filesystem::resize_file(file, smallestLimit);
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(log.LogEntry(L"", LogLevel::error, L"text"), 0U);
    EXPECT_NE(
        ::testing::internal::GetCapturedStderr().find("logging: Failed to replace old log file: "),
        std::string::npos);
    EXPECT_GT(std::filesystem::file_size(file), smallestLimit);
    EXPECT_EQ(ReadLinesOf(file).back().substr(0, 10).find(L'\0'), 0U);
}

TEST_F(CCommonLogTest, TellsWhyAFileCannotBeOpenedAndGoesOnLater) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    {
        const windows::FileHandle alone(
            CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_EQ(log.LogEntry(L"", LogLevel::error, L"lost"), DWORD{ERROR_SHARING_VIOLATION});
    }
    EXPECT_EQ(log.LogEntry(L"", LogLevel::error, L"text"), 0U);
    EXPECT_EQ(TextOf(ReadLinesOf(file).back()), L"[Error] text");
}

TEST_F(CCommonLogTest, CanBeReadWhileItIsWritten) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    const windows::FileHandle reader = OpenLogFile(file);
    EXPECT_EQ(log.LogEntry(L"", LogLevel::error, L"text"), 0U);
}

TEST_F(CCommonLogTest, KeepsNoFileOpenBetweenLines) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    EXPECT_TRUE(std::filesystem::remove(file));
    EXPECT_EQ(log.LogEntry(L"", LogLevel::error, L"text"), 0U);
    EXPECT_EQ(ReadLinesOf(file).size(), 1U);
}

TEST_F(CCommonLogTest, WaitsForTheMachinesMutex) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    windows::KernelHandle mutex;
    ASSERT_EQ(CreateLogMutex(MutexName(), mutex), 0U);
    std::thread writer;
    {
        const windows::HeldMutex held(mutex.Get());
        writer = std::thread([&] { log.LogEntry(L"", LogLevel::error, L"text"); });
        Sleep(200);
        EXPECT_EQ(ReadLinesOf(file).size(), 1U);
    }
    writer.join();
    EXPECT_EQ(ReadLinesOf(file).size(), 2U);
}

TEST_F(CCommonLogTest, WritesOnWhenTheMutexsOwnerDied) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    windows::KernelHandle mutex;
    ASSERT_EQ(CreateLogMutex(MutexName(), mutex), 0U);
    std::thread([&] { WaitForSingleObject(mutex.Get(), INFINITE); }).join();
    EXPECT_EQ(log.LogEntry(L"", LogLevel::error, L"first"), 0U);
    std::thread([&] { log.LogEntry(L"", LogLevel::error, L"second"); }).join();
    EXPECT_EQ(TextOf(ReadLinesOf(file).back()), L"[Error] second");
}

TEST_F(CCommonLogTest, ThreadsOfAProcessWriteWholeLinesWhileItIsReset) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    std::jthread resetting([&] { Repeat(20, [&] { log.LogReset(); }); });
    RunOnThreads(
        4, [&](int) { Repeat(50, [&] { log.LogEntry(L"", LogLevel::error, L"0123456789"); }); });
    resetting.join();
    const std::vector<std::wstring> lines = ReadLinesOf(file);
    EXPECT_EQ(lines.size(), 1U + 200U + 20U);
    EXPECT_EQ(std::ranges::count(lines, L"[Error] 0123456789", TextOf), 200);
}

}  // namespace
}  // namespace qv::test
