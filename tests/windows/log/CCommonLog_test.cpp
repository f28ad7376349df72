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
#include "tests/windows/log/LogTimes.h"
#include "tests/windows/log/ScratchFolder.h"
#include "tests/windows/log/ScratchRegistry.h"

namespace qv {
namespace {

using qv::testing::ReadBytesOf;
using qv::testing::ReadLinesOf;
using qv::testing::TextOf;
using qv::testing::WriteBytesTo;

constexpr auto path = L"Software\\Corvane\\WBEM";
constexpr std::uint32_t limit = 0x80000;

/// A log in a folder of its own, module "TestMod", level 2, the smallest size limit.
class CommonLogTest : public ::testing::Test {
protected:
    CommonLogTest() {
        registry.SetText(path, L"LogFolder", folder.Path());
        registry.SetNumber(path, L"LogLevel", 2);
        registry.SetNumber(path, L"LogMaxSize", limit);
    }
    ~CommonLogTest() override { std::filesystem::remove(fallbackFile); }

    std::wstring MutexName() const { return LogMutexName(folder.Path(), L"TestMod"); }

    qv::testing::ScratchRegistry registry;
    qv::testing::ScratchFolder folder;
    std::wstring file = folder.File(L"TestMod.log");
    std::wstring previous = folder.File(L"TestMod.lo_");
    std::wstring fallbackFile = DefaultLogFolder() + L"TestMod.log";
    CCommonLog log;
};

TEST_F(CommonLogTest, AnnouncesItsInitialisation) {
    EXPECT_EQ(log.LogInit(L"TestMod"), 0U);
    EXPECT_EQ(log.Module(), L"TestMod");
    EXPECT_EQ(log.Level(), LogLevel::verbose);
    const std::vector<std::wstring> lines = ReadLinesOf(file);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(TextOf(lines[0]),
              L"[Information] !CCommonLog::LogInit| A logging interface is initialized "
              L"(Module=\"TestMod\", Level=Verbose, size=524288)");
}

TEST_F(CommonLogTest, WritesToTheManagementServicesFolderWithoutSettings) {
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, path);
    EXPECT_EQ(log.LogInit(L"TestMod"), 0U);
    const std::vector<std::wstring> lines =
        ReadLinesOf(L"C:\\windows\\system32\\wbem\\logs\\TestMod.log");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(TextOf(lines[0]),
              L"[Information] !CCommonLog::LogInit| A logging interface is initialized "
              L"(Module=\"TestMod\", Level=Information, size=2097152)");
}

TEST_F(CommonLogTest, TellsOfInvalidSettingsAndWorksAllTheSame) {
    registry.SetNumber(path, L"LogLevel", 6);
    EXPECT_EQ(log.LogInit(L"TestMod"), 87U);
    EXPECT_EQ(log.Level(), LogLevel::information);
    EXPECT_EQ(log.LogEntry(L"F", LogLevel::error, L"text"), 0U);
    EXPECT_EQ(ReadLinesOf(file).size(), 2U);
}

TEST_F(CommonLogTest, TakesTheLevelOfItsComponent) {
    registry.SetNumber(path, L"LogLevel (TESTMOD)", 3);
    registry.SetNumber(path, L"LogLevel (TESTMOD:PART)", 5);
    EXPECT_EQ(log.LogInit(L"TestMod", L"Part"), 0U);
    EXPECT_EQ(log.Level(), LogLevel::error);
}

TEST_F(CommonLogTest, FallsBackWhenTheFolderDoesNotExist) {
    registry.SetText(path, L"LogFolder", folder.File(L"missing"));
    EXPECT_EQ(log.LogInit(L"TestMod"), 0U);
    EXPECT_EQ(ReadLinesOf(fallbackFile).size(), 1U);
}

TEST_F(CommonLogTest, FallsBackWhenTheFileCannotBeWritten) {
    std::filesystem::create_directory(file);
    EXPECT_EQ(log.LogInit(L"TestMod"), 0U);
    EXPECT_EQ(ReadLinesOf(fallbackFile).size(), 1U);
}

TEST_F(CommonLogTest, NamesTheMutexOfTheFallbackAfterTheFallback) {
    registry.SetText(path, L"LogFolder", folder.File(L"missing"));
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    EXPECT_TRUE(windows::KernelHandle(
        OpenMutexW(SYNCHRONIZE, FALSE, L"Global\\C:WINDOWSSYSTEM32WBEMLOGSTESTMOD")));
}

TEST_F(CommonLogTest, GivesUpWhenTheFallbackFailsToo) {
    std::filesystem::create_directory(file);
    std::filesystem::create_directory(fallbackFile);
    const std::uint32_t error = log.LogInit(L"TestMod");
    EXPECT_NE(error, 0U);
    EXPECT_NE(error, 87U);
    EXPECT_EQ(log.LogEntry(L"F", LogLevel::error, L"text"), DWORD{ERROR_INVALID_HANDLE});
}

TEST_F(CommonLogTest, FallsSilentWithoutItsMutex) {
    const windows::KernelHandle event(CreateEventW(nullptr, TRUE, FALSE, MutexName().c_str()));
    EXPECT_EQ(log.LogInit(L"TestMod"), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_EQ(log.Module(), L"QVCommonLog_MutexError");
    EXPECT_EQ(static_cast<std::uint32_t>(log.Level()), 1024U);
    EXPECT_EQ(log.LogEntry(L"F", LogLevel::error, L"text"), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_EQ(ReadBytesOf(file), "");
}

TEST_F(CommonLogTest, WorksAgainAfterAResetThatFindsTheMutexsNameFree) {
    windows::KernelHandle event(CreateEventW(nullptr, TRUE, FALSE, MutexName().c_str()));
    ASSERT_NE(log.LogInit(L"TestMod"), 0U);
    event.Reset();
    EXPECT_EQ(log.LogReset(), 0U);
    EXPECT_EQ(log.Module(), L"TestMod");
    EXPECT_EQ(log.Level(), LogLevel::verbose);
    EXPECT_EQ(ReadLinesOf(file).size(), 1U);
}

TEST_F(CommonLogTest, ClosesTheMutexHeldFromBeforeWhenItIsInitialisedAgain) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    ASSERT_EQ(log.LogInit(L"Other"), 0U);
    EXPECT_FALSE(windows::KernelHandle(OpenMutexW(SYNCHRONIZE, FALSE, MutexName().c_str())));
    EXPECT_EQ(log.Module(), L"Other");
    EXPECT_EQ(ReadLinesOf(folder.File(L"Other.log")).size(), 1U);
}

TEST_F(CommonLogTest, RefusesLinesBeforeItsInitialisation) {
    EXPECT_EQ(log.LogEntry(L"F", LogLevel::error, L"text"), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_EQ(log.Module(), L"");
}

TEST_F(CommonLogTest, ResetReadsLevelAndSizeAgainAndSaysSo) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    registry.SetNumber(path, L"LogLevel", 4);
    registry.SetNumber(path, L"LogMaxSize", 0x90000);
    EXPECT_EQ(log.LogReset(), 0U);
    EXPECT_EQ(log.Level(), LogLevel::warning);
    const std::vector<std::wstring> lines = ReadLinesOf(file);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(TextOf(lines[1]),
              L"[Information] !CCommonLog::LogReset| A logging interface is updated "
              L"(Module=\"TestMod\", Level=Warning, size=589824)");
}

TEST_F(CommonLogTest, ResetKeepsTheFolder) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    const qv::testing::ScratchFolder other;
    registry.SetText(path, L"LogFolder", other.Path());
    EXPECT_EQ(log.LogReset(), 0U);
    EXPECT_EQ(ReadLinesOf(file).size(), 2U);
    EXPECT_EQ(other.FileCount(), 0U);
}

TEST_F(CommonLogTest, ResetReturnsToTheDefaultsWhenTheSettingsAreGone) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, path);
    EXPECT_EQ(log.LogReset(), 0U);
    EXPECT_EQ(log.Level(), LogLevel::information);
}

TEST_F(CommonLogTest, ResetTellsOfInvalidSettings) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    registry.SetNumber(path, L"LogLevel", 6);
    EXPECT_EQ(log.LogReset(), 87U);
    EXPECT_EQ(ReadLinesOf(file).size(), 2U);
}

TEST_F(CommonLogTest, ResetStaysSilentWithoutItsMutex) {
    const windows::KernelHandle event(CreateEventW(nullptr, TRUE, FALSE, MutexName().c_str()));
    ASSERT_NE(log.LogInit(L"TestMod"), 0U);
    EXPECT_EQ(log.LogReset(), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_EQ(log.Level(), LogLevel::silent);
}

TEST_F(CommonLogTest, ResetBeforeInitialisationIsAnInvalidParameter) {
    EXPECT_EQ(log.LogReset(), 87U);
}

TEST_F(CommonLogTest, WritesLinesWithTheLocalTime) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    const std::uint64_t before = qv::testing::LocalTimeNow();
    EXPECT_EQ(log.LogEntry(L"C::M", LogLevel::error, L"It failed"), 0U);
    const std::uint64_t after = qv::testing::LocalTimeNow();
    const std::wstring line = ReadLinesOf(file).back();
    std::wsmatch match;
    ASSERT_TRUE(std::regex_match(
        line, match,
        std::wregex(LR"((\d\d)/(\d\d)/(\d{4}) (\d\d):(\d\d):(\d\d)\.(\d{3}) \[Error\] C::M\| It )"
                    LR"(failed)")));
    EXPECT_LE(before, qv::testing::TimeOf(match));
    EXPECT_GE(after, qv::testing::TimeOf(match));
}

TEST_F(CommonLogTest, WritesTwoByteCharactersWithoutAMarkOrATerminator) {
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

TEST_F(CommonLogTest, WritesEveryLevelThatItIsGiven) {
    registry.SetNumber(path, L"LogLevel", 5);
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    EXPECT_EQ(log.LogEntry(L"", LogLevel::debug, L"text"), 0U);
    EXPECT_EQ(TextOf(ReadLinesOf(file).back()), L"[Debug] text");
}

TEST_F(CommonLogTest, AppendsToWhatIsThere) {
    WriteBytesTo(file, "ab");
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    EXPECT_EQ(ReadBytesOf(file).substr(0, 2), "ab");
}

TEST_F(CommonLogTest, BeginsANewFileBeforeTheLineThatFindsTheLimitReached) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    WriteBytesTo(previous, "older");
    std::filesystem::resize_file(file, limit);
    EXPECT_EQ(log.LogEntry(L"", LogLevel::error, L"first of the new"), 0U);
    EXPECT_EQ(std::filesystem::file_size(previous), limit);
    const std::vector<std::wstring> lines = ReadLinesOf(file);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(TextOf(lines[0]), L"[Error] first of the new");
}

TEST_F(CommonLogTest, StaysInAFileThatIsOneByteBelowTheLimit) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    std::filesystem::resize_file(file, limit - 1);
    EXPECT_EQ(log.LogEntry(L"", LogLevel::error, L"text"), 0U);
    EXPECT_GT(std::filesystem::file_size(file), limit);
    EXPECT_FALSE(std::filesystem::exists(previous));
}

TEST_F(CommonLogTest, AppendsToTheOldFileWhenItCannotBeRenamed) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    std::filesystem::create_directory(previous);
    std::filesystem::resize_file(file, limit);
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(log.LogEntry(L"", LogLevel::error, L"text"), 0U);
    EXPECT_NE(
        ::testing::internal::GetCapturedStderr().find("logging: Failed to replace old log file: "),
        std::string::npos);
    EXPECT_GT(std::filesystem::file_size(file), limit);
    EXPECT_EQ(ReadLinesOf(file).back().substr(0, 10).find(L'\0'), 0U);
}

TEST_F(CommonLogTest, TellsWhyAFileCannotBeOpenedAndGoesOnLater) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    {
        const windows::FileHandle alone(
            CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_EQ(log.LogEntry(L"", LogLevel::error, L"lost"), DWORD{ERROR_SHARING_VIOLATION});
    }
    EXPECT_EQ(log.LogEntry(L"", LogLevel::error, L"text"), 0U);
    EXPECT_EQ(TextOf(ReadLinesOf(file).back()), L"[Error] text");
}

TEST_F(CommonLogTest, CanBeReadWhileItIsWritten) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    const windows::FileHandle reader = OpenLogFile(file);
    EXPECT_EQ(log.LogEntry(L"", LogLevel::error, L"text"), 0U);
}

TEST_F(CommonLogTest, KeepsNoFileOpenBetweenLines) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    EXPECT_TRUE(std::filesystem::remove(file));
    EXPECT_EQ(log.LogEntry(L"", LogLevel::error, L"text"), 0U);
    EXPECT_EQ(ReadLinesOf(file).size(), 1U);
}

TEST_F(CommonLogTest, WaitsForTheMachinesMutex) {
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

TEST_F(CommonLogTest, WritesOnWhenTheMutexsOwnerDied) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    windows::KernelHandle mutex;
    ASSERT_EQ(CreateLogMutex(MutexName(), mutex), 0U);
    std::thread([&] { WaitForSingleObject(mutex.Get(), INFINITE); }).join();
    EXPECT_EQ(log.LogEntry(L"", LogLevel::error, L"first"), 0U);
    std::thread([&] { log.LogEntry(L"", LogLevel::error, L"second"); }).join();
    EXPECT_EQ(TextOf(ReadLinesOf(file).back()), L"[Error] second");
}

TEST_F(CommonLogTest, ThreadsOfAProcessWriteWholeLinesWhileItIsReset) {
    ASSERT_EQ(log.LogInit(L"TestMod"), 0U);
    std::vector<std::thread> writers;
    for (int writer = 0; writer < 4; ++writer) {
        writers.emplace_back([&] {
            for (int line = 0; line < 50; ++line) {
                log.LogEntry(L"", LogLevel::error, L"0123456789");
            }
        });
    }
    for (int reset = 0; reset < 20; ++reset) {
        log.LogReset();
    }
    for (std::thread& writer : writers) {
        writer.join();
    }
    const std::vector<std::wstring> lines = ReadLinesOf(file);
    EXPECT_EQ(lines.size(), 1U + 200U + 20U);
    EXPECT_EQ(std::ranges::count(lines, L"[Error] 0123456789", TextOf), 200);
}

}  // namespace
}  // namespace qv
