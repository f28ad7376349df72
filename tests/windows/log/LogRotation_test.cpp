#include "log/LogRotation.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>

#include "log/LogFile.h"
#include "tests/windows/log/ScratchFolder.h"

namespace qv {
namespace {

using qv::testing::ReadBytesOf;
using qv::testing::WriteBytesTo;

constexpr std::uint32_t limit = 100;

class LogRotation : public ::testing::Test {
protected:
    std::uint32_t Rotate() { return RotateIfFull(stem, limit, file); }

    qv::testing::ScratchFolder folder;
    std::wstring stem = folder.File(L"M");
    std::wstring current = folder.File(L"M.log");
    std::wstring previous = folder.File(L"M.lo_");
    windows::FileHandle file;
};

TEST_F(LogRotation, LeavesAFileBelowTheLimitInUse) {
    WriteBytesTo(current, std::string(limit - 1, 'x'));
    file = OpenLogFile(current);
    const HANDLE before = file.Get();
    EXPECT_EQ(Rotate(), 0U);
    EXPECT_EQ(file.Get(), before);
    EXPECT_EQ(folder.FileCount(), 1U);
}

TEST_F(LogRotation, RenamesAFileThatHasReachedTheLimitAndBeginsANewOne) {
    WriteBytesTo(current, std::string(limit, 'x'));
    file = OpenLogFile(current);
    EXPECT_EQ(Rotate(), 0U);
    EXPECT_TRUE(file);
    EXPECT_EQ(ReadBytesOf(previous), std::string(limit, 'x'));
    EXPECT_EQ(ReadBytesOf(current), "");
}

TEST_F(LogRotation, ReplacesTheOlderFile) {
    WriteBytesTo(previous, "older");
    WriteBytesTo(current, std::string(limit + 1, 'x'));
    file = OpenLogFile(current);
    EXPECT_EQ(Rotate(), 0U);
    EXPECT_EQ(ReadBytesOf(previous), std::string(limit + 1, 'x'));
    EXPECT_EQ(folder.FileCount(), 2U);
}

TEST_F(LogRotation, SaysOnTheErrorStreamThatTheOlderFileCannotBeReplaced) {
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

TEST_F(LogRotation, FailsWhileSomebodyHoldsTheFullFileOpen) {
    WriteBytesTo(current, std::string(limit, 'x'));
    const windows::FileHandle reader = OpenLogFile(current);
    file = OpenLogFile(current);
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(Rotate(), 3U);
    EXPECT_NE(::testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(ReadBytesOf(current), std::string(limit, 'x'));
}

}  // namespace
}  // namespace qv
