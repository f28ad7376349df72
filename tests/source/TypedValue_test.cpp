#include "source/TypedValue.h"

#include <gmock/gmock.h>

#include <optional>

namespace qv::test {
namespace {

using testing::Each;
using testing::ResultOf;
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

// Returns the published values of a text under several types.
std::vector<std::optional<TypedValue>> ConvertAll(const std::vector<PropertyType>& types,
                                                  const std::string& text) {
    std::vector<std::optional<TypedValue>> values;
    for (const PropertyType type : types) {
        values.push_back(Convert(type, text));
    }
    return values;
}

// Returns the published values of several texts under a type.
std::vector<std::optional<TypedValue>> ConvertAll(PropertyType type, const Strings& texts) {
    std::vector<std::optional<TypedValue>> values;
    for (const std::string& text : texts) {
        values.push_back(Convert(type, text));
    }
    return values;
}

TEST(TypedValue, Types0And10And16AreTheTextItself) {
    const std::vector types{PropertyType::untyped, PropertyType::text, PropertyType::string};
    EXPECT_THAT(ConvertAll(types, " a*-*b "), Each(TypedValue{" a*-*b "}));
    EXPECT_THAT(ConvertAll(types, ""), Each(TypedValue{""}));
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
    const std::vector types{PropertyType::int32, PropertyType::integer};
    EXPECT_THAT(ConvertAll(types, "0"), Each(TypedValue{0}));
    EXPECT_THAT(ConvertAll(types, "2147483647"), Each(TypedValue{2147483647}));
    EXPECT_THAT(ConvertAll(types, "-2147483648"), Each(TypedValue{-2147483647 - 1}));
    EXPECT_THAT(ConvertAll(types, "02"), Each(TypedValue{2}));
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
    EXPECT_THAT(ConvertAll(PropertyType::boolean, {"TRUE", "true", "True", "tRuE"}),
                Each(TypedValue{true}));
    EXPECT_THAT(
        ConvertAll(PropertyType::boolean, {"yes", "1", "", "FALSE", " TRUE", "TRUE ", "TRUEX"}),
        Each(TypedValue{false}));
}

TEST(TypedValue, Type14IsAReference) {
    EXPECT_EQ(Convert(PropertyType::reference, R"(C.K="v")"), TypedValue{Reference{R"(C.K="v")"}});
}

TEST(TypedValue, Types17And21AreTheTextsBetweenTheSeparators) {
    const std::vector types{PropertyType::stringArray, PropertyType::textArray};
    EXPECT_THAT(ConvertAll(types, "a*-* b *-**-*c"),
                Each(TypedValue{Strings{"a", " b ", "", "c"}}));
    EXPECT_THAT(ConvertAll(types, "a"), Each(TypedValue{Strings{"a"}}));
    EXPECT_THAT(ConvertAll(types, ""), Each(TypedValue{std::monostate{}}));
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
    const std::vector<std::uint32_t> codes{1,  2,  3,  4,  5,  6,   12,         13,
                                           15, 18, 20, 22, 23, 100, 0x80000000, 0xFFFFFFFF};
    EXPECT_THAT(
        codes, Each(ResultOf(
                   [](std::uint32_t code) { return Convert(static_cast<PropertyType>(code), "1"); },
                   std::nullopt)));
}

}  // namespace
}  // namespace qv::test
