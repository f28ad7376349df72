#include "platform/windows/RegistryKey.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "settings/StoredValue.h"
#include "tests/support/windows/ScratchRegistry.h"

namespace qv::test {
namespace {

using windows::RegistryKey;

constexpr auto keyPath = L"Software\\QV";

class RegistryKeyTest : public ::testing::Test {
protected:
    RegistryKeyTest() { registry.CreateKey(keyPath); }

    void Store(DWORD type, std::wstring_view characters) {
        registry.SetBytes(keyPath, L"Value", type, std::as_bytes(std::span(characters)));
    }
    RegistryKey Open() const { return RegistryKey::OpenLocalMachine(keyPath); }

    ScratchRegistry registry;
    std::wstring text = L"before";
};

TEST_F(RegistryKeyTest, AMissingKeyConvertsToFalse) {
    EXPECT_FALSE(RegistryKey::OpenLocalMachine(L"Software\\QV\\Missing"));
    EXPECT_TRUE(Open());
}

TEST_F(RegistryKeyTest, AMovedKeyIsEmptyAndItsReceiverReads) {
    registry.SetNumber(keyPath, L"Value", 7);
    RegistryKey from = Open();
    RegistryKey to;
    to = std::move(from);
    EXPECT_FALSE(from);
    const RegistryKey last(std::move(to));
    EXPECT_EQ(last.ReadNumber(L"Value"), 7U);
}

TEST_F(RegistryKeyTest, ReadsTextWithoutItsTerminator) {
    registry.SetText(keyPath, L"Value", L"C:\\logs");
    EXPECT_EQ(Open().ReadText(L"Value", text), ERROR_SUCCESS);
    EXPECT_EQ(text, L"C:\\logs");
}

TEST_F(RegistryKeyTest, ReadsTextThatNothingTerminates) {
    Store(REG_SZ, L"abc");
    EXPECT_EQ(Open().ReadText(L"Value", text), ERROR_SUCCESS);
    EXPECT_EQ(text, L"abc");
}

TEST_F(RegistryKeyTest, LeavesTheHalfCharacterAtTheEndOfAnOddTextOut) {
    registry.SetBytes(keyPath, L"Value", REG_SZ,
                      std::as_bytes(std::span(L"abc")).first(2 * sizeof(wchar_t) + 1));
    EXPECT_EQ(Open().ReadText(L"Value", text), ERROR_SUCCESS);
    EXPECT_EQ(text, L"ab");
}

TEST_F(RegistryKeyTest, ReadsTextUpToItsFirstNull) {
    using namespace std::string_view_literals;
    Store(REG_SZ, L"abc\0def\0"sv);
    EXPECT_EQ(Open().ReadText(L"Value", text), ERROR_SUCCESS);
    EXPECT_EQ(text, L"abc");
}

TEST_F(RegistryKeyTest, ReadsStoredNothingAsAnEmptyText) {
    Store(REG_SZ, L"");
    EXPECT_EQ(Open().ReadText(L"Value", text), ERROR_SUCCESS);
    EXPECT_EQ(text, L"");
}

TEST_F(RegistryKeyTest, ReadsTextWithVariablesAsItIsStored) {
    registry.SetText(keyPath, L"Value", L"%SystemRoot%\\logs", REG_EXPAND_SZ);
    EXPECT_EQ(Open().ReadText(L"Value", text), ERROR_SUCCESS);
    EXPECT_EQ(text, L"%SystemRoot%\\logs");
}

TEST_F(RegistryKeyTest, ReadsALongText) {
    const std::wstring stored(20000, L'x');
    registry.SetText(keyPath, L"Value", stored);
    EXPECT_EQ(Open().ReadText(L"Value", text), ERROR_SUCCESS);
    EXPECT_EQ(text, stored);
}

TEST_F(RegistryKeyTest, RefusesANumberAsTextAndLeavesTheTextAlone) {
    registry.SetNumber(keyPath, L"Value", 7);
    EXPECT_EQ(Open().ReadText(L"Value", text), ERROR_INVALID_DATATYPE);
    EXPECT_EQ(text, L"before");
}

TEST_F(RegistryKeyTest, TellsThatATextIsMissing) {
    EXPECT_EQ(Open().ReadText(L"Missing", text), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(text, L"before");
}

TEST_F(RegistryKeyTest, ReadsNumbersOfFourBytesOnly) {
    registry.SetNumber(keyPath, L"Value", 0xFFFFFFFF);
    EXPECT_EQ(Open().ReadNumber(L"Value"), 0xFFFFFFFFU);
    EXPECT_EQ(Open().ReadNumber(L"Missing"), std::nullopt);
    Store(REG_DWORD, L"a");
    EXPECT_EQ(Open().ReadNumber(L"Value"), std::nullopt);
    Store(REG_DWORD, L"abc");
    EXPECT_EQ(Open().ReadNumber(L"Value"), std::nullopt);
    Store(REG_BINARY, L"ab");
    EXPECT_EQ(Open().ReadNumber(L"Value"), std::nullopt);
    registry.SetText(keyPath, L"Value", L"3");
    EXPECT_EQ(Open().ReadNumber(L"Value"), std::nullopt);
}

TEST_F(RegistryKeyTest, ReadsTheTypeAndTheBytesOfAnyValue) {
    registry.SetText(keyPath, L"Value", L"6");
    StoredValue value;
    EXPECT_EQ(Open().Read(L"Value", value), ERROR_SUCCESS);
    EXPECT_EQ(value.type, DWORD{REG_SZ});
    EXPECT_EQ(value.bytes, std::string("6\0\0\0", 4));
    registry.SetBytes(keyPath, L"Value", REG_BINARY, {});
    EXPECT_EQ(Open().Read(L"Value", value), ERROR_SUCCESS);
    EXPECT_EQ(value.type, DWORD{REG_BINARY});
    EXPECT_EQ(value.bytes, "");
}

TEST_F(RegistryKeyTest, AMissingValueHasNeitherTypeNorBytes) {
    StoredValue value{7, "before"};
    EXPECT_EQ(Open().Read(L"Missing", value), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(value.type, DWORD{REG_NONE});
    EXPECT_EQ(value.bytes, "");
}

}  // namespace
}  // namespace qv::test
