#include "source/PropertyReaders.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <new>
#include <optional>

#include "tests/support/ScriptedHost.h"

namespace qv::test {
namespace {

using platform::Value;
using Integers = std::vector<std::int32_t>;

constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();

/// A value of each kind that the management service delivers, and the result of each reader; empty
/// if the reader refuses the kind.
struct Kind {
    const char* name;
    Value value;
    std::optional<std::string> text;
    std::optional<bool> flag;
    std::optional<std::int32_t> number;
    std::optional<Integers> numbers;
};

const std::array kinds{
    Kind{"Null", std::monostate{}, {}, {}, {}, {}},
    Kind{"Text", "12", "12", {}, {}, {}},
    Kind{"EmptyText", "", "", {}, {}, {}},
    Kind{"False", false, {}, false, {}, {}},
    Kind{"True", true, {}, true, {}, {}},
    Kind{"Int8", std::int8_t{-3}, {}, {}, -3, {}},
    Kind{"LowestInt8", std::int8_t{-128}, {}, {}, -128, {}},
    Kind{"UInt8", std::uint8_t{255}, {}, {}, 255, {}},
    Kind{"Int16", std::int16_t{-300}, {}, {}, -300, {}},
    Kind{"LowestInt16", std::int16_t{-32768}, {}, {}, -32768, {}},
    Kind{"UInt16", std::uint16_t{65535}, {}, {}, 65535, {}},
    Kind{"Int32", std::int32_t{-70000}, {}, {}, -70000, {}},
    Kind{"LowestInt32", lowest, {}, {}, lowest, {}},
    Kind{"HighestInt32", std::int32_t{2147483647}, {}, {}, 2147483647, {}},
    Kind{"UInt32", std::uint32_t{70000}, {}, {}, 70000, {}},
    Kind{"UInt32WithTheTopmostBit", std::uint32_t{0x80000000}, {}, {}, lowest, {}},
    Kind{"HighestUInt32", std::uint32_t{0xFFFFFFFF}, {}, {}, -1, {}},
    Kind{"Int16Array", std::vector<std::int16_t>{1, -1}, {}, {}, {}, Integers{1, 65535}},
    Kind{"UInt16Array", std::vector<std::uint16_t>{2, 65535}, {}, {}, {}, Integers{2, 65535}},
    Kind{"Int32Array", std::vector<std::int32_t>{3, -1}, {}, {}, {}, Integers{3, -1}},
    Kind{"UInt32Array", std::vector<std::uint32_t>{4, 0xFFFFFFFF}, {}, {}, {}, Integers{4, -1}},
    Kind{"EmptyArray", std::vector<std::int32_t>{}, {}, {}, {}, Integers{}},
    Kind{"Unread", platform::UnreadValue{}, {}, {}, {}, {}},
};

ScriptedRow RowOf(const Value& value) {
    return ScriptedRow(Properties{{"P", value}});
}

Status StatusOf(bool accepted) {
    return accepted ? Status::noError : Status::failed;
}

class PropertyReadersTest : public testing::TestWithParam<Kind> {
protected:
    ScriptedRow row = RowOf(GetParam().value);
};

TEST_P(PropertyReadersTest, GetStringPropertyAcceptsTextOnlyAndLeavesTheOutputOtherwise) {
    std::string text = "before";
    EXPECT_EQ(GetStringProperty(row, "P", text), StatusOf(GetParam().text.has_value()));
    EXPECT_EQ(text, GetParam().text.value_or("before"));
}

TEST_P(PropertyReadersTest,
       GetIntegerPropertyAcceptsWholeNumbersOfUpTo32BitsAndLeavesTheOutputOtherwise) {
    std::int32_t number = 4711;
    EXPECT_EQ(GetIntegerProperty(row, "P", number), StatusOf(GetParam().number.has_value()));
    EXPECT_EQ(number, GetParam().number.value_or(4711));
}

TEST_P(PropertyReadersTest, GetBooleanPropertyAcceptsABooleanOnlyAndLeavesTheOutputOtherwise) {
    bool flag = false;
    EXPECT_EQ(GetBooleanProperty(row, "P", flag), StatusOf(GetParam().flag.has_value()));
    EXPECT_EQ(flag, GetParam().flag.value_or(false));
    flag = true;
    EXPECT_EQ(GetBooleanProperty(row, "P", flag), StatusOf(GetParam().flag.has_value()));
    EXPECT_EQ(flag, GetParam().flag.value_or(true));
}

TEST_P(PropertyReadersTest, GetUInt16PropertyKeepsTheLow16BitsOfAWholeNumber) {
    std::uint16_t number = 4711;
    EXPECT_EQ(GetUInt16Property(row, "P", number), StatusOf(GetParam().number.has_value()));
    EXPECT_EQ(number, static_cast<std::uint16_t>(GetParam().number.value_or(4711)));
}

TEST_P(PropertyReadersTest,
       GetIntegerArrayPropertyAcceptsNumberArraysAndZeroExtendsTheir16BitElements) {
    Integers numbers{47, 11};
    EXPECT_EQ(GetIntegerArrayProperty(row, "P", numbers), StatusOf(GetParam().numbers.has_value()));
    EXPECT_EQ(numbers, GetParam().numbers.value_or(Integers{}));
}

TEST_P(PropertyReadersTest, TextOrEmptyIsTheTextOrEmptyForAnythingElse) {
    EXPECT_EQ(TextOrEmpty(row, "P"), GetParam().text.value_or(""));
}

INSTANTIATE_TEST_SUITE_P(EachKind, PropertyReadersTest, testing::ValuesIn(kinds),
                         [](const auto& kind) { return kind.param.name; });

TEST(PropertyReaders, GetUInt16PropertyDropsTheUpperBits) {
    std::uint16_t number = 0;
    GetUInt16Property(RowOf(std::int32_t{0x12345}), "P", number);
    EXPECT_EQ(number, 0x2345);
    GetUInt16Property(RowOf(std::int8_t{-1}), "P", number);
    EXPECT_EQ(number, 0xFFFF);
}

TEST(PropertyReaders, GetStringPropertyGivesTheStatusOfAFailedReadAndLeavesTheOutput) {
    std::string text = "before";
    EXPECT_EQ(GetStringProperty(ScriptedRow({}), "P", text), Status::notFound);
    EXPECT_EQ(text, "before");
}

/// A row whose properties cannot be read.
class UnreadableRow : public platform::Row {
public:
    explicit UnreadableRow(std::optional<Status> status) : status_(status) {}

    platform::PropertyRead Get(std::string_view) const override {
        return status_ ? platform::PropertyRead{*status_, {}} : throw std::bad_alloc();
    }
    Status GetWideText(std::string_view, std::wstring&) const override { return Status::failed; }

private:
    std::optional<Status> status_;  ///< of the reads; empty: they run out of memory
};

TEST(PropertyReaders, GetStringPropertyEndsTheRequestWhenThereIsNoMemoryForTheText) {
    std::string text = "before";
    try {
        GetStringProperty(UnreadableRow({}), "P", text);
        FAIL() << "goes on";
    } catch (const RequestError& error) {
        EXPECT_EQ(error.status(), Status::outOfMemory);
    }
    EXPECT_EQ(text, "before");
}

TEST(PropertyReaders, GetStringPropertyTakesARowThatReportsNoMemoryForAnyFailedRead) {
    const UnreadableRow row(Status::outOfMemory);
    std::string text = "before";
    EXPECT_EQ(GetStringProperty(row, "P", text), Status::outOfMemory);
    EXPECT_EQ(text, "before");
    EXPECT_EQ(TextOrEmpty(row, "P"), "");
}

TEST(PropertyReaders, OfOtherKindsTurnAFailedReadIntoTheGeneralFailureAndLeaveTheOutput) {
    const ScriptedRow row({});
    std::int32_t number = 5;
    EXPECT_EQ(GetIntegerProperty(row, "P", number), Status::failed);
    EXPECT_EQ(number, 5);
    bool flag = true;
    EXPECT_EQ(GetBooleanProperty(row, "P", flag), Status::failed);
    EXPECT_TRUE(flag);
}

TEST(PropertyReaders, GetUInt16PropertyTurnsAFailedReadIntoTheGeneralFailure) {
    std::uint16_t number = 5;
    EXPECT_EQ(GetUInt16Property(ScriptedRow({}), "P", number), Status::failed);
    EXPECT_EQ(number, 5);
}

TEST(PropertyReaders, GetIntegerArrayPropertyEmptiesTheOutputEvenWhenTheReadFails) {
    Integers numbers{1, 2};
    EXPECT_EQ(GetIntegerArrayProperty(ScriptedRow({}), "P", numbers), Status::failed);
    EXPECT_EQ(numbers, Integers{});
}

TEST(PropertyReaders, TextOrEmptyIsEmptyForAMissingProperty) {
    EXPECT_EQ(TextOrEmpty(ScriptedRow({}), "P"), "");
}

TEST(PropertyReaders, DecimalOrZeroIsTheSignedDecimalOrZeroForAnythingElse) {
    EXPECT_EQ(DecimalOrZero(RowOf(std::int32_t{-70000}), "P"), "-70000");
    EXPECT_EQ(DecimalOrZero(RowOf(lowest), "P"), "-2147483648");
    EXPECT_EQ(DecimalOrZero(RowOf(std::uint32_t{0xFFFFFFFF}), "P"), "-1");
    EXPECT_EQ(DecimalOrZero(RowOf(std::uint16_t{512}), "P"), "512");
    EXPECT_EQ(DecimalOrZero(RowOf(std::uint8_t{255}), "P"), "255");
    EXPECT_EQ(DecimalOrZero(RowOf("12"), "P"), "0");
    EXPECT_EQ(DecimalOrZero(RowOf(true), "P"), "0");
    EXPECT_EQ(DecimalOrZero(RowOf(std::monostate{}), "P"), "0");
    EXPECT_EQ(DecimalOrZero(ScriptedRow({}), "P"), "0");
}

}  // namespace
}  // namespace qv::test
