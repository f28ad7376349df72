#include "source/TypedValue.h"

#include <gtest/gtest.h>

#include <optional>

namespace qv::test {
namespace {

using Strings = std::vector<std::string>;
using Integers = std::vector<std::int32_t>;

// Returns the published value of a text under a type; nothing if the property is skipped.
std::optional<TypedValue> Convert(PropertyType type, std::string text) {
    TypedValue value;
    if (!ToTypedValue({"Name", std::move(text), type, false}, value)) {
        return std::nullopt;
    }
    return value;
}

TEST(TypedValue, Types0And10And16AreTheTextItself) {
    for (const PropertyType type :
         {PropertyType::untyped, PropertyType::text, PropertyType::string}) {
        EXPECT_EQ(Convert(type, " a*-*b "), TypedValue{" a*-*b "});
        EXPECT_EQ(Convert(type, ""), TypedValue{""});
    }
}

TEST(TypedValue, Type7IsANumberTruncatedTo8Bits) {
    EXPECT_EQ(Convert(PropertyType::uint8, "7"), TypedValue{std::uint8_t{7}});
    EXPECT_EQ(Convert(PropertyType::uint8, "255"), TypedValue{std::uint8_t{255}});
    EXPECT_EQ(Convert(PropertyType::uint8, "256"), TypedValue{std::uint8_t{0}});
    EXPECT_EQ(Convert(PropertyType::uint8, "511"), TypedValue{std::uint8_t{255}});
    EXPECT_EQ(Convert(PropertyType::uint8, "-1"), TypedValue{std::uint8_t{255}});
    EXPECT_EQ(Convert(PropertyType::uint8, "x"), TypedValue{std::uint8_t{0}});
}

TEST(TypedValue, Types8And9AreSignedNumbers) {
    for (const PropertyType type : {PropertyType::int32, PropertyType::integer}) {
        EXPECT_EQ(Convert(type, "0"), TypedValue{0});
        EXPECT_EQ(Convert(type, "2147483647"), TypedValue{2147483647});
        EXPECT_EQ(Convert(type, "-2147483648"), TypedValue{-2147483647 - 1});
        EXPECT_EQ(Convert(type, "02"), TypedValue{2});
    }
}

TEST(TypedValue, Type8ReadsLeadingDigitsAndGives0WithoutThem) {
    EXPECT_EQ(Convert(PropertyType::int32, "1A"), TypedValue{1});
    EXPECT_EQ(Convert(PropertyType::int32, "abc"), TypedValue{0});
    EXPECT_EQ(Convert(PropertyType::int32, ""), TypedValue{0});
}

TEST(TypedValue, ANumberBeyond32BitsIsTheNearestThatFits) {
    EXPECT_EQ(Convert(PropertyType::int32, "99999999999"), TypedValue{2147483647});
    EXPECT_EQ(Convert(PropertyType::int32, "-99999999999"), TypedValue{-2147483647 - 1});
}

TEST(TypedValue, Type11IsTrueExactlyForTrueInAnyCase) {
    for (const char* text : {"TRUE", "true", "True", "tRuE"}) {
        EXPECT_EQ(Convert(PropertyType::boolean, text), TypedValue{true}) << text;
    }
    for (const char* text : {"yes", "1", "", "FALSE", " TRUE", "TRUE ", "TRUEX"}) {
        EXPECT_EQ(Convert(PropertyType::boolean, text), TypedValue{false}) << text;
    }
}

TEST(TypedValue, Type14IsAReference) {
    EXPECT_EQ(Convert(PropertyType::reference, R"(C.K="v")"), TypedValue{Reference{R"(C.K="v")"}});
}

TEST(TypedValue, Types17And21AreTheTextsBetweenTheSeparators) {
    for (const PropertyType type : {PropertyType::stringArray, PropertyType::textArray}) {
        EXPECT_EQ(Convert(type, "a*-* b *-**-*c"), (TypedValue{Strings{"a", " b ", "", "c"}}));
        EXPECT_EQ(Convert(type, "a"), TypedValue{Strings{"a"}});
        EXPECT_EQ(Convert(type, ""), TypedValue{std::monostate{}});
    }
}

TEST(TypedValue, Type19IsTheNumbersBetweenTheSeparators) {
    EXPECT_EQ(Convert(PropertyType::int32Array, "3*-*10"), (TypedValue{Integers{3, 10}}));
    EXPECT_EQ(Convert(PropertyType::int32Array, "-5*-*1A*-*x"), (TypedValue{Integers{-5, 1, 0}}));
}

TEST(TypedValue, Type19WithAnEmptyTextIsNoValue) {
    EXPECT_EQ(Convert(PropertyType::int32Array, ""), TypedValue{std::monostate{}});
}

TEST(TypedValue, Type19ReadsAnEmptyElementAs0) {
    EXPECT_EQ(Convert(PropertyType::int32Array, "2*-**-*5"), (TypedValue{Integers{2, 0, 5}}));
}

TEST(TypedValue, AnyOtherTypeIsSkipped) {
    for (const std::uint32_t code : {1U, 2U, 3U, 4U, 5U, 6U, 12U, 13U, 15U, 18U, 20U, 22U, 23U,
                                     100U, 0x80000000U, 0xFFFFFFFFU}) {
        EXPECT_EQ(Convert(static_cast<PropertyType>(code), "1"), std::nullopt) << code;
    }
}

}  // namespace
}  // namespace qv::test
