#include "log/LogSettings.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>

#include "log/LogPlace.h"
#include "tests/support/windows/LogFiles.h"

namespace qv::test {
namespace {

constexpr std::uint32_t invalidParameter = 87;

/// Reads the settings of the module "mod" and the component "comp".
std::uint32_t Read(LogSettings& settings, FolderSetting folder = FolderSetting::read) {
    return ReadLogSettings(L"mod", L"comp", folder, settings);
}

using Number = std::optional<std::uint32_t>;

class LogSettingsTest : public ::testing::Test {
protected:
    /// Sets a number of the common log's key unless it is to be missing.
    void Set(const wchar_t* name, Number number) {
        if (number) {
            registry.SetNumber(commonLogKey, name, *number);
        }
    }

    void SetValidNumbers() {
        registry.SetNumber(commonLogKey, L"LogLevel", 3);
        registry.SetNumber(commonLogKey, L"LogMaxSize", 0x80000);
    }

    ScratchRegistry registry;
    LogSettings settings;
};

TEST_F(LogSettingsTest, AreTheDefaultsWithoutTheKey) {
    EXPECT_EQ(Read(settings), 0U);
    EXPECT_EQ(settings.folder, DefaultLogFolder());
    EXPECT_EQ(settings.level, LogLevel::information);
    EXPECT_EQ(settings.maxSize, 2097152U);
}

TEST_F(LogSettingsTest, DefaultFolderIsThatOfTheManagementService) {
    EXPECT_EQ(DefaultLogFolder(), L"C:\\windows\\system32\\wbem\\logs\\");
}

TEST_F(LogSettingsTest, AreTheDefaultsAndAnInvalidParameterInAnEmptyKey) {
    registry.CreateKey(commonLogKey);
    EXPECT_EQ(Read(settings), invalidParameter);
    EXPECT_EQ(settings.folder, DefaultLogFolder());
    EXPECT_EQ(settings.level, LogLevel::information);
    EXPECT_EQ(settings.maxSize, 2097152U);
}

TEST_F(LogSettingsTest, FolderGetsABackslashWhenItHasNone) {
    SetValidNumbers();
    registry.SetText(commonLogKey, L"LogFolder", L"D:\\logs");
    EXPECT_EQ(Read(settings), 0U);
    EXPECT_EQ(settings.folder, L"D:\\logs\\");
}

TEST_F(LogSettingsTest, FolderKeepsItsBackslash) {
    SetValidNumbers();
    registry.SetText(commonLogKey, L"LogFolder", L"D:\\logs\\");
    EXPECT_EQ(Read(settings), 0U);
    EXPECT_EQ(settings.folder, L"D:\\logs\\");
}

TEST_F(LogSettingsTest, FolderIsReadOnlyWhenAskedFor) {
    SetValidNumbers();
    registry.SetText(commonLogKey, L"LogFolder", L"D:\\logs\\");
    EXPECT_EQ(Read(settings, FolderSetting::ignored), 0U);
    EXPECT_EQ(settings.folder, DefaultLogFolder());
}

TEST_F(LogSettingsTest, FolderOfAnotherTypeIsAnInvalidParameterAndTheRestIsTaken) {
    SetValidNumbers();
    registry.SetNumber(commonLogKey, L"LogLevel", 5);
    registry.SetNumber(commonLogKey, L"LogFolder", 1);
    EXPECT_EQ(Read(settings), invalidParameter);
    EXPECT_EQ(settings.folder, DefaultLogFolder());
    EXPECT_EQ(settings.level, LogLevel::error);
    EXPECT_EQ(settings.maxSize, 0x80000U);
}

TEST_F(LogSettingsTest, EmptyFolderIsAnInvalidParameter) {
    SetValidNumbers();
    registry.SetText(commonLogKey, L"LogFolder", L"");
    EXPECT_EQ(Read(settings), invalidParameter);
    EXPECT_EQ(settings.folder, DefaultLogFolder());
}

TEST_F(LogSettingsTest, FolderNeedsNoTerminator) {
    SetValidNumbers();
    registry.SetBytes(commonLogKey, L"LogFolder", REG_SZ,
                      std::as_bytes(std::span(std::wstring_view(L"D:\\logs"))));
    EXPECT_EQ(Read(settings), 0U);
    EXPECT_EQ(settings.folder, L"D:\\logs\\");
}

TEST_F(LogSettingsTest, NumbersOfAnotherTypeOrSizeAreAnInvalidParameter) {
    registry.SetText(commonLogKey, L"LogLevel", L"5");
    registry.SetBytes(commonLogKey, L"LogMaxSize", REG_DWORD, {});
    EXPECT_EQ(Read(settings), invalidParameter);
    EXPECT_EQ(settings.level, LogLevel::information);
    EXPECT_EQ(settings.maxSize, 2097152U);
}

struct LevelCase {
    const char* name;
    Number general;
    Number module;
    Number component;
    std::uint32_t level;
    std::uint32_t result;
};

std::ostream& operator<<(std::ostream& stream, const LevelCase& row) {
    return stream << "general " << row.general.value_or(999) << " module "
                  << row.module.value_or(999) << " component " << row.component.value_or(999);
}

class LogSettingsLevel : public LogSettingsTest, public ::testing::WithParamInterface<LevelCase> {};

TEST_P(LogSettingsLevel, IsTheMostSpecificValidOneBelowValidOnes) {
    const LevelCase& row = GetParam();
    registry.SetNumber(commonLogKey, L"LogMaxSize", 0x80000);
    Set(L"LogLevel", row.general);
    Set(L"LogLevel (MOD)", row.module);
    Set(L"LogLevel (MOD:COMP)", row.component);
    EXPECT_EQ(Read(settings), row.result);
    EXPECT_EQ(static_cast<std::uint32_t>(settings.level), row.level);
}

constexpr Number none = std::nullopt;

INSTANTIATE_TEST_SUITE_P(
    Precedence, LogSettingsLevel,
    ::testing::Values(LevelCase{"None", none, none, none, 3, 87},
                      LevelCase{"GeneralAtTheLowerBound", 1, none, none, 1, 0},
                      LevelCase{"GeneralAtTheUpperBound", 5, none, none, 5, 0},
                      LevelCase{"GeneralBelowTheRange", 0, none, none, 3, 87},
                      LevelCase{"GeneralAboveTheRange", 6, none, none, 3, 87},
                      LevelCase{"GeneralBelowTheRangeHidesValidOnes", 0, 5, 4, 3, 87},
                      LevelCase{"GeneralAboveTheRangeHidesValidOnes", 6, 5, 4, 3, 87},
                      LevelCase{"NoGeneralHidesValidOnes", none, 5, 4, 3, 87},
                      LevelCase{"ModuleAtTheUpperBound", 2, 5, none, 5, 0},
                      LevelCase{"ModuleAtTheLowerBound", 2, 1, none, 1, 0},
                      LevelCase{"ModuleBelowTheRange", 2, 0, none, 2, 0},
                      LevelCase{"ModuleAboveTheRange", 2, 6, none, 2, 0},
                      LevelCase{"NoModuleHidesTheComponent", 2, none, 4, 2, 0},
                      LevelCase{"ModuleBelowTheRangeHidesTheComponent", 2, 0, 4, 2, 0},
                      LevelCase{"ModuleAboveTheRangeHidesTheComponent", 2, 6, 4, 2, 0},
                      LevelCase{"ComponentWins", 2, 5, 4, 4, 0},
                      LevelCase{"ComponentAtTheLowerBound", 2, 5, 1, 1, 0},
                      LevelCase{"ComponentBelowTheRange", 2, 5, 0, 5, 0},
                      LevelCase{"ComponentAboveTheRange", 2, 5, 6, 5, 0}),
    [](const auto& row) { return std::string(row.param.name); });

struct SizeCase {
    const char* name;
    Number general;
    Number module;
    std::uint32_t size;
    std::uint32_t result;
};

std::ostream& operator<<(std::ostream& stream, const SizeCase& row) {
    return stream << "general " << row.general.value_or(999) << " module "
                  << row.module.value_or(999);
}

class LogSettingsSize : public LogSettingsTest, public ::testing::WithParamInterface<SizeCase> {};

TEST_P(LogSettingsSize, IsTheMostSpecificValidOneBelowAValidOne) {
    const SizeCase& row = GetParam();
    registry.SetNumber(commonLogKey, L"LogLevel", 3);
    Set(L"LogMaxSize", row.general);
    Set(L"LogMaxSize (MOD)", row.module);
    EXPECT_EQ(Read(settings), row.result);
    EXPECT_EQ(settings.maxSize, row.size);
}

INSTANTIATE_TEST_SUITE_P(
    Precedence, LogSettingsSize,
    ::testing::Values(SizeCase{"None", none, none, 0x200000, 87},
                      SizeCase{"GeneralBelowTheRange", 0x7FFFF, none, 0x200000, 87},
                      SizeCase{"GeneralAtTheLowerBound", 0x80000, none, 0x80000, 0},
                      SizeCase{"GeneralAtTheUpperBound", 0x2000000, none, 0x2000000, 0},
                      SizeCase{"GeneralAboveTheRange", 0x2000001, none, 0x200000, 87},
                      SizeCase{"GeneralBelowTheRangeHidesTheModule", 0x7FFFF, 0x90000, 0x200000,
                               87},
                      SizeCase{"NoGeneralHidesTheModule", none, 0x90000, 0x200000, 87},
                      SizeCase{"ModuleWins", 0x80000, 0x90000, 0x90000, 0},
                      SizeCase{"ModuleAtTheUpperBound", 0x80000, 0x2000000, 0x2000000, 0},
                      SizeCase{"ModuleBelowTheRange", 0x80000, 0x7FFFF, 0x80000, 0},
                      SizeCase{"ModuleAboveTheRange", 0x80000, 0x2000001, 0x80000, 0}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(LogSettingsTest, ValuesOfTheModuleAreFoundUnderItsUpperCasedName) {
    SetValidNumbers();
    registry.SetNumber(commonLogKey, L"LogLevel (QVWMISATA)", 1);
    registry.SetNumber(commonLogKey, L"LogLevel (QVWMISATA:EVENTS)", 4);
    EXPECT_EQ(ReadLogSettings(L"QvWmiSata", L"events", FolderSetting::read, settings), 0U);
    EXPECT_EQ(settings.level, LogLevel::warning);
}

}  // namespace
}  // namespace qv::test
