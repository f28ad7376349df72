#include "log/ProviderLog.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <ostream>
#include <vector>

#include "log/LogMutex.h"
#include "tests/support/windows/LogFiles.h"
#include "tests/support/windows/Threads.h"

namespace qv::test {
namespace {

class ProviderLogTest : public ::testing::Test {
protected:
    ProviderLogTest() {
        registry.SetText(commonLogKey, L"LogFolder", folder.Path());
        registry.SetNumber(commonLogKey, L"LogLevel", 3);
        registry.SetNumber(commonLogKey, L"LogMaxSize", 0x80000);
    }

    ScratchRegistry registry;
    ScratchFolder folder;
    std::wstring file = folder.File(L"TestMod.log");
    ProviderLog log{L"TestMod"};
};

TEST_F(ProviderLogTest, TouchesNothingBeforeItsFirstUse) {
    EXPECT_EQ(folder.FileCount(), 0U);
    EXPECT_EQ(log.Level(), LogLevel::information);
    EXPECT_EQ(ReadLinesOf(file).size(), 1U);
}

TEST_F(ProviderLogTest, WritesPlainLinesAsInformationAndFailuresAsErrors) {
    log.Plain(L"C::M", L"Entering M");
    log.Failure(L"C::M", L"It failed");
    const std::vector<std::wstring> lines = ReadLinesOf(file);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(TextOf(lines[1]), L"[Information] C::M| Entering M");
    EXPECT_EQ(TextOf(lines[2]), L"[Error] C::M| It failed");
}

TEST_F(ProviderLogTest, TakesTheNarrowTextOfTheCore) {
    log.Plain("C::M", "Entering M");
    log.Failure("C::M", "It failed");
    const std::vector<std::wstring> lines = ReadLinesOf(file);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(TextOf(lines[1]), L"[Information] C::M| Entering M");
    EXPECT_EQ(TextOf(lines[2]), L"[Error] C::M| It failed");
}

TEST_F(ProviderLogTest, KeepsATextThatEndsALineInItsOwnLine) {
    log.Write(LogLevel::information, "C::M| Description = a\r\n[Error] forged");
    log.Plain(L"C::M", L"a\n[Error] forged");
    const std::vector<std::wstring> lines = ReadLinesOf(file);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(TextOf(lines[1]), L"[Information] C::M| Description = a\\x0d\\x0a[Error] forged");
    EXPECT_EQ(TextOf(lines[2]), L"[Information] C::M| a\\x0a[Error] forged");
}

struct RuleCase {
    std::uint32_t level;
    std::size_t plainLines;
    std::size_t failureLines;
};

std::ostream& operator<<(std::ostream& stream, const RuleCase& row) {
    return stream << "level " << row.level;
}

class ProviderLogRule : public ProviderLogTest, public ::testing::WithParamInterface<RuleCase> {};

TEST_P(ProviderLogRule, WritesWhatIsNotBelowTheConfiguredLevel) {
    registry.SetNumber(commonLogKey, L"LogLevel", GetParam().level);
    ASSERT_EQ(static_cast<std::uint32_t>(log.Level()), GetParam().level);
    log.Plain(L"C::M", L"text");
    EXPECT_EQ(ReadLinesOf(file).size(), 1 + GetParam().plainLines);
    log.Failure(L"C::M", L"text");
    EXPECT_EQ(ReadLinesOf(file).size(), 1 + GetParam().plainLines + GetParam().failureLines);
}

INSTANTIATE_TEST_SUITE_P(Levels, ProviderLogRule,
                         ::testing::Values(RuleCase{1, 1, 1}, RuleCase{2, 1, 1}, RuleCase{3, 1, 1},
                                           RuleCase{4, 0, 1}, RuleCase{5, 0, 1}),
                         [](const auto& row) { return "Level" + std::to_string(row.param.level); });

TEST_F(ProviderLogTest, WritesNothingWithoutItsMutex) {
    const windows::KernelHandle event(
        CreateEventW(nullptr, TRUE, FALSE, LogMutexName(folder.Path(), L"TestMod").c_str()));
    log.Plain(L"C::M", L"text");
    log.Failure(L"C::M", L"text");
    EXPECT_EQ(log.Level(), LogLevel::silent);
    EXPECT_EQ(ReadBytesOf(file), "");
}

TEST_F(ProviderLogTest, GoesOnWhenALineCannotBeWritten) {
    log.Plain(L"C::M", L"first");
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    log.Plain(L"C::M", L"lost");
    std::filesystem::remove(file);
    log.Plain(L"C::M", L"last");
    EXPECT_EQ(ReadLinesOf(file).size(), 1U);
}

TEST_F(ProviderLogTest, IsInitialisedOnceWhenManyThreadsUseItFirst) {
    RunOnThreads(8, [&](int) { log.Plain(L"C::M", L"text"); });
    EXPECT_EQ(ReadLinesOf(file).size(), 1U + 8U);
}

}  // namespace
}  // namespace qv::test
