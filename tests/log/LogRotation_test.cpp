#include "log/LogRotation.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>

#include "log/LogFile.h"
#include "tests/support/windows/ScratchFolder.h"

namespace qv::test {
namespace {

constexpr std::uint32_t limit = 100;

class LogRotationTest : public ::testing::Test {
protected:
    std::uint32_t Rotate() { return RotateIfFull(stem, limit, file); }

    ScratchFolder folder;
    std::wstring stem = folder.File(L"M");
    std::wstring current = folder.File(L"M.log");
    std::wstring previous = folder.File(L"M.lo_");
    windows::FileHandle file;
};

TEST_F(LogRotationTest, LeavesAFileBelowTheLimitInUse) {
    WriteBytesTo(current, std::string(limit - 1, 'x'));
    file = OpenLogFile(current);
    const HANDLE before = file.Get();
    EXPECT_EQ(Rotate(), 0U);
    EXPECT_EQ(file.Get(), before);
    EXPECT_EQ(folder.FileCount(), 1U);
}

TEST_F(LogRotationTest, RenamesAFileThatHasReachedTheLimitAndBeginsANewOne) {
    WriteBytesTo(current, std::string(limit, 'x'));
    file = OpenLogFile(current);
    EXPECT_EQ(Rotate(), 0U);
    EXPECT_TRUE(file);
    EXPECT_EQ(ReadBytesOf(previous), std::string(limit, 'x'));
    EXPECT_EQ(ReadBytesOf(current), "");
}

TEST_F(LogRotationTest, ReplacesTheOlderFile) {
    WriteBytesTo(previous, "older");
    WriteBytesTo(current, std::string(limit + 1, 'x'));
    file = OpenLogFile(current);
    EXPECT_EQ(Rotate(), 0U);
    EXPECT_EQ(ReadBytesOf(previous), std::string(limit + 1, 'x'));
    EXPECT_EQ(folder.FileCount(), 2U);
}

TEST_F(LogRotationTest, SaysOnTheErrorStreamThatTheOlderFileCannotBeReplaced) {
    std::filesystem::create_directory(previous);
    WriteBytesTo(current, std::string(limit, 'x'));
    file = OpenLogFile(current);
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(Rotate(), 3U);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
              "logging: Failed to replace old log file: " +
                  std::filesystem::path(previous).string() + "\n");
    EXPECT_FALSE(file);
    EXPECT_EQ(ReadBytesOf(current), std::string(limit, 'x'));
}

TEST_F(LogRotationTest, FailsWhileSomebodyHoldsTheFullFileOpen) {
    WriteBytesTo(current, std::string(limit, 'x'));
    const windows::FileHandle reader = OpenLogFile(current);
    file = OpenLogFile(current);
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(Rotate(), 3U);
    EXPECT_NE(::testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(ReadBytesOf(current), std::string(limit, 'x'));
}

}  // namespace
}  // namespace qv::test
