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
    Kind{"null", std::monostate{}, {}, {}, {}, {}},
    Kind{"text", "12", "12", {}, {}, {}},
    Kind{"empty text", "", "", {}, {}, {}},
    Kind{"false", false, {}, false, {}, {}},
    Kind{"true", true, {}, true, {}, {}},
    Kind{"int8", std::int8_t{-3}, {}, {}, -3, {}},
    Kind{"lowest int8", std::int8_t{-128}, {}, {}, -128, {}},
    Kind{"uint8", std::uint8_t{255}, {}, {}, 255, {}},
    Kind{"int16", std::int16_t{-300}, {}, {}, -300, {}},
    Kind{"lowest int16", std::int16_t{-32768}, {}, {}, -32768, {}},
    Kind{"uint16", std::uint16_t{65535}, {}, {}, 65535, {}},
    Kind{"int32", std::int32_t{-70000}, {}, {}, -70000, {}},
    Kind{"lowest int32", lowest, {}, {}, lowest, {}},
    Kind{"highest int32", std::int32_t{2147483647}, {}, {}, 2147483647, {}},
    Kind{"uint32", std::uint32_t{70000}, {}, {}, 70000, {}},
    Kind{"uint32 with the topmost bit", std::uint32_t{0x80000000}, {}, {}, lowest, {}},
    Kind{"highest uint32", std::uint32_t{0xFFFFFFFF}, {}, {}, -1, {}},
    Kind{"int16 array", std::vector<std::int16_t>{1, -1}, {}, {}, {}, Integers{1, 65535}},
    Kind{"uint16 array", std::vector<std::uint16_t>{2, 65535}, {}, {}, {}, Integers{2, 65535}},
    Kind{"int32 array", std::vector<std::int32_t>{3, -1}, {}, {}, {}, Integers{3, -1}},
    Kind{"uint32 array", std::vector<std::uint32_t>{4, 0xFFFFFFFF}, {}, {}, {}, Integers{4, -1}},
    Kind{"empty array", std::vector<std::int32_t>{}, {}, {}, {}, Integers{}},
    Kind{"unread", platform::UnreadValue{}, {}, {}, {}, {}},
};

ScriptedRow RowOf(const Value& value) {
    return ScriptedRow(Properties{{"P", value}});
}

Status StatusOf(bool accepted) {
    return accepted ? Status::noError : Status::failed;
}

TEST(PropertyReaders, GetStringPropertyAcceptsTextOnlyAndLeavesTheOutputOtherwise) {
    for (const Kind& kind : kinds) {
        std::string text = "before";
        EXPECT_EQ(GetStringProperty(RowOf(kind.value), "P", text), StatusOf(kind.text.has_value()))
            << kind.name;
        EXPECT_EQ(text, kind.text.value_or("before")) << kind.name;
    }
}

TEST(PropertyReaders,
     GetIntegerPropertyAcceptsWholeNumbersOfUpTo32BitsAndLeavesTheOutputOtherwise) {
    for (const Kind& kind : kinds) {
        std::int32_t number = 4711;
        EXPECT_EQ(GetIntegerProperty(RowOf(kind.value), "P", number),
                  StatusOf(kind.number.has_value()))
            << kind.name;
        EXPECT_EQ(number, kind.number.value_or(4711)) << kind.name;
    }
}

TEST(PropertyReaders, GetBooleanPropertyAcceptsABooleanOnlyAndLeavesTheOutputOtherwise) {
    for (const Kind& kind : kinds) {
        for (const bool before : {false, true}) {
            bool flag = before;
            EXPECT_EQ(GetBooleanProperty(RowOf(kind.value), "P", flag),
                      StatusOf(kind.flag.has_value()))
                << kind.name;
            EXPECT_EQ(flag, kind.flag.value_or(before)) << kind.name;
        }
    }
}

TEST(GetUInt16Property, KeepsTheLow16BitsOfAWholeNumber) {
    for (const Kind& kind : kinds) {
        std::uint16_t number = 4711;
        EXPECT_EQ(GetUInt16Property(RowOf(kind.value), "P", number),
                  StatusOf(kind.number.has_value()))
            << kind.name;
        const std::uint16_t expected =
            kind.number ? static_cast<std::uint16_t>(*kind.number) : std::uint16_t{4711};
        EXPECT_EQ(number, expected) << kind.name;
    }
    std::uint16_t number = 0;
    GetUInt16Property(RowOf(std::int32_t{0x12345}), "P", number);
    EXPECT_EQ(number, 0x2345);
    GetUInt16Property(RowOf(std::int8_t{-1}), "P", number);
    EXPECT_EQ(number, 0xFFFF);
}

TEST(PropertyReaders, GetIntegerArrayPropertyAcceptsNumberArraysAndZeroExtendsTheir16BitElements) {
    for (const Kind& kind : kinds) {
        Integers numbers{47, 11};
        EXPECT_EQ(GetIntegerArrayProperty(RowOf(kind.value), "P", numbers),
                  StatusOf(kind.numbers.has_value()))
            << kind.name;
        EXPECT_EQ(numbers, kind.numbers.value_or(Integers{})) << kind.name;
    }
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

TEST(GetUInt16Property, TurnsAFailedReadIntoTheGeneralFailure) {
    std::uint16_t number = 5;
    EXPECT_EQ(GetUInt16Property(ScriptedRow({}), "P", number), Status::failed);
    EXPECT_EQ(number, 5);
}

TEST(PropertyReaders, GetIntegerArrayPropertyEmptiesTheOutputEvenWhenTheReadFails) {
    Integers numbers{1, 2};
    EXPECT_EQ(GetIntegerArrayProperty(ScriptedRow({}), "P", numbers), Status::failed);
    EXPECT_EQ(numbers, Integers{});
}

TEST(PropertyReaders, TextOrEmptyIsTheTextOrEmptyForAnythingElse) {
    for (const Kind& kind : kinds) {
        EXPECT_EQ(TextOrEmpty(RowOf(kind.value), "P"), kind.text.value_or("")) << kind.name;
    }
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
