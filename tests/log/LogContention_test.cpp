// One log file, written by eight processes at once.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <map>
#include <numeric>
#include <regex>
#include <string>
#include <vector>

#include "platform/windows/Handle.h"
#include "tests/support/windows/LogFiles.h"

namespace qv::test {
namespace {

using ::testing::_;
using ::testing::Each;
using ::testing::Pair;

constexpr int writers = 8;
constexpr int linesOfEach = 1000;

class LogContentionTest : public ::testing::Test {
protected:
    LogContentionTest() {
        registry.SetText(commonLogKey, L"LogFolder", folder.Path());
        registry.SetNumber(commonLogKey, L"LogLevel", 3);
    }

    windows::KernelHandle StartWriter(int writer) const {
        wchar_t self[MAX_PATH];
        GetModuleFileNameW(nullptr, self, MAX_PATH);
        const auto program = std::filesystem::path(self).replace_filename(L"log_writer_child.exe");
        std::wstring command = L"\"" + program.native() + L"\" " + registry.Name() + L" Shared " +
                               std::to_wstring(writer) + L" " + std::to_wstring(linesOfEach);
        STARTUPINFOW startup{};
        startup.cb = sizeof(startup);
        PROCESS_INFORMATION process{};
        EXPECT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                   nullptr, &startup, &process));
        const windows::KernelHandle thread(process.hThread);
        return windows::KernelHandle(process.hProcess);
    }

    /// Runs the writers to their end; fails if one had a line refused.
    void RunWriters() const {
        std::vector<windows::KernelHandle> processes;
        for (int writer = 0; writer < writers; ++writer) {
            processes.push_back(StartWriter(writer));
        }
        for (const windows::KernelHandle& process : processes) {
            WaitForSingleObject(process.Get(), INFINITE);
            DWORD exitCode = 1;
            EXPECT_TRUE(GetExitCodeProcess(process.Get(), &exitCode));
            EXPECT_EQ(exitCode, 0U);
        }
    }

    /// Returns the line numbers of each writer, in the order of the file; incomplete lines fail the
    /// test.
    std::map<int, std::vector<int>> NumbersIn(const std::vector<std::wstring>& lines) const {
        static const std::wregex whole(
            LR"(\d\d/\d\d/\d{4} \d\d:\d\d:\d\d\.\d{3} \[Information\] )"
            LR"((?:writer(\d)\| line (\d+) (\.*)end)"
            LR"(|!CCommonLog::LogInit\| A logging interface is initialized \(.*\)))");
        std::map<int, std::vector<int>> numbers;
        for (const std::wstring& line : lines) {
            std::wsmatch match;
            if (!std::regex_match(line, match, whole)) {
                ADD_FAILURE() << "torn line " << std::string(line.begin(), line.end());
            } else if (match[1].matched) {
                const int number = std::stoi(match[2]);
                EXPECT_EQ(match[3].length(), number % 37);
                numbers[std::stoi(match[1])].push_back(number);
            }
        }
        return numbers;
    }

    static std::vector<int> Sequence(int first, int last) {
        std::vector<int> sequence(static_cast<std::size_t>(last - first + 1));
        std::iota(sequence.begin(), sequence.end(), first);
        return sequence;
    }

    ScratchRegistry registry;
    ScratchFolder folder;
    std::wstring current = folder.File(L"Shared.log");
    std::wstring previous = folder.File(L"Shared.lo_");
};

MATCHER(EndsWithoutAGap, "is all the numbers from some one on to the last") {
    std::vector<int> rest(arg.size());
    std::iota(rest.begin(), rest.end(), arg.front());
    return arg == rest && arg.back() == linesOfEach - 1;
}

TEST_F(LogContentionTest, KeepsEveryLineWholeWhileTheFileIsBelowItsLimit) {
    registry.SetNumber(commonLogKey, L"LogMaxSize", 0x2000000);
    RunWriters();
    const std::map<int, std::vector<int>> numbers = NumbersIn(ReadLinesOf(current));
    ASSERT_EQ(numbers.size(), std::size_t{writers});
    EXPECT_THAT(numbers, Each(Pair(_, Sequence(0, linesOfEach - 1))));
    EXPECT_EQ(folder.FileCount(), 1U);
}

TEST_F(LogContentionTest, LosesOnlyWholeOlderFilesWhenTheFileRotates) {
    constexpr std::uint32_t limit = 0x80000;
    registry.SetNumber(commonLogKey, L"LogMaxSize", limit);
    RunWriters();
    std::vector<std::wstring> lines = ReadLinesOf(previous);
    const std::vector<std::wstring> newer = ReadLinesOf(current);
    lines.insert(lines.end(), newer.begin(), newer.end());
    const std::map<int, std::vector<int>> numbers = NumbersIn(lines);
    EXPECT_GT(numbers.size(), 0U);
    EXPECT_THAT(numbers, Each(Pair(_, EndsWithoutAGap())));
    EXPECT_GE(std::filesystem::file_size(previous), limit);
    EXPECT_EQ(folder.FileCount(), 2U);
}

}  // namespace
}  // namespace qv::test
