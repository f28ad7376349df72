#include "qvsata/cim/PutRules.h"

#include <gmock/gmock.h>

#include "qvsata/cim/StatusCodes.h"

namespace qv::test {
namespace {

using service::CimType;
using service::CimValue;
using service::PutValue;
namespace variant = service::variant;
namespace status = service::status;

constexpr service::VariantType arrayOfText = variant::array | variant::text;
constexpr service::VariantType arrayOfInt32 = variant::array | variant::int32;
constexpr service::VariantType arrayOfAnything = variant::array | variant::any;

CimValue Number(std::int64_t number) {
    return number;
}

CimValue Numbers(std::vector<std::int64_t> numbers) {
    return numbers;
}

/// A value, the type of the property that it is put on, and what is stored; no `stored`: refused.
struct Row {
    PutValue put;
    CimType type;
    bool isArray;
    std::optional<CimValue> stored;
};

class PutRulesTest : public testing::TestWithParam<Row> {};

TEST_P(PutRulesTest, StoresOrRefuses) {
    const auto& [put, type, isArray, expected] = GetParam();
    CimValue stored = "as before";
    EXPECT_EQ(ConvertForPut(put, type, isArray, stored),
              expected ? Status::noError : status::typeMismatch);
    EXPECT_EQ(stored, expected.value_or("as before"));
}

constexpr bool one = false;
constexpr bool several = true;

INSTANTIATE_TEST_SUITE_P(
    OwnTypes, PutRulesTest,
    testing::Values(
        Row{{variant::text, "a"}, CimType::string, one, "a"},
        Row{{variant::uint8, Number(200)}, CimType::uint8, one, Number(200)},
        Row{{variant::int32, Number(65535)}, CimType::uint16, one, Number(65535)},
        Row{{variant::int32, Number(65536)}, CimType::uint16, one, std::nullopt},
        Row{{variant::int32, Number(-1)}, CimType::uint16, one, std::nullopt},
        Row{{variant::int32, Number(-1)}, CimType::uint32, one, Number(4294967295)},
        Row{{variant::int16, Number(-128)}, CimType::sint8, one, Number(-128)},
        Row{{variant::int16, Number(-129)}, CimType::sint8, one, std::nullopt},
        Row{{variant::real64, 1.5}, CimType::real64, one, 1.5},
        Row{{variant::boolean, Number(1)}, CimType::boolean, one, true},
        Row{{variant::boolean, Number(-1)}, CimType::boolean, one, true},
        Row{{variant::boolean, Number(0)}, CimType::boolean, one, false},
        Row{{variant::text, "18446744073709551615"}, CimType::uint64, one, "18446744073709551615"},
        Row{{variant::text, "0x10"}, CimType::uint64, one, std::nullopt},
        Row{{variant::text, "20240131235959.000000+060"},
            CimType::datetime,
            one,
            "20240131235959.000000+060"},
        Row{{variant::text, "yesterday"}, CimType::datetime, one, std::nullopt},
        Row{{variant::object, CimValue{}}, CimType::object, one, std::nullopt}));

INSTANTIATE_TEST_SUITE_P(
    Conversions, PutRulesTest,
    testing::Values(Row{{variant::text, " 4 "}, CimType::uint16, one, Number(4)},
                    Row{{variant::text, "-1"}, CimType::uint32, one, Number(4294967295)},
                    Row{{variant::text, "+4"}, CimType::uint32, one, Number(4)},
                    Row{{variant::text, "+-4"}, CimType::uint32, one, std::nullopt},
                    Row{{variant::text, "2147483648"}, CimType::uint32, one, std::nullopt},
                    Row{{variant::text, ""}, CimType::uint32, one, std::nullopt},
                    Row{{variant::text, " "}, CimType::uint32, one, std::nullopt},
                    Row{{variant::text, "4 of 5"}, CimType::uint32, one, std::nullopt},
                    Row{{variant::text, "inf"}, CimType::real64, one, std::nullopt},
                    Row{{variant::text, "2.5"}, CimType::real64, one, 2.5},
                    Row{{variant::text, "2.5"}, CimType::uint32, one, Number(2)},
                    Row{{variant::text, "true"}, CimType::boolean, one, true},
                    Row{{variant::text, "0"}, CimType::boolean, one, false},
                    Row{{variant::text, "yes"}, CimType::boolean, one, std::nullopt},
                    Row{{variant::int32, Number(17)}, CimType::uint64, one, "17"},
                    Row{{variant::int32, Number(255)}, CimType::uint8, one, Number(255)},
                    Row{{variant::int32, Number(256)}, CimType::uint8, one, std::nullopt},
                    Row{{variant::int32, Number(7)}, CimType::boolean, one, true},
                    Row{{variant::int32, Number(7)}, CimType::real32, one, 7.0},
                    Row{{variant::int32, Number(7)}, CimType::datetime, one, std::nullopt},
                    Row{{variant::uint8, Number(9)}, CimType::string, one, "9"},
                    Row{{variant::boolean, Number(1)}, CimType::string, one, "1"},
                    Row{{variant::real64, 12.5}, CimType::uint32, one, Number(12)},
                    Row{{variant::real64, 1e10}, CimType::uint32, one, std::nullopt},
                    Row{{variant::real64, 1.5}, CimType::string, one, std::nullopt},
                    Row{{variant::int64, "5"}, CimType::uint32, one, Number(5)}));

INSTANTIATE_TEST_SUITE_P(
    WidenedNumbers, PutRulesTest,
    testing::Values(Row{{variant::int16, Number(3)}, CimType::uint32, one, std::nullopt},
                    Row{{variant::uint8, Number(3)}, CimType::uint16, one, std::nullopt},
                    Row{{variant::uint32, Number(3)}, CimType::uint32, one, Number(3)}));

INSTANTIATE_TEST_SUITE_P(
    Arrays, PutRulesTest,
    testing::Values(
        Row{{arrayOfInt32, Numbers({3, 4})}, CimType::uint16, several, Numbers({3, 4})},
        Row{{arrayOfInt32, Numbers({-1})}, CimType::uint16, several, std::nullopt},
        Row{{arrayOfInt32, Numbers({-1})}, CimType::uint32, several, Numbers({4294967295})},
        Row{{arrayOfText, std::vector<std::string>{"4"}}, CimType::uint16, several, std::nullopt},
        Row{{variant::int32, Number(3)}, CimType::uint16, several, std::nullopt},
        Row{{arrayOfInt32, Numbers({3})}, CimType::uint16, one, std::nullopt},
        Row{{arrayOfAnything, std::vector<std::string>{}},
            CimType::string,
            several,
            std::vector<std::string>{}},
        Row{{arrayOfAnything, std::vector<std::string>{}},
            CimType::boolean,
            several,
            std::vector<bool>{}},
        Row{{arrayOfAnything, CimValue{}}, CimType::string, several, std::nullopt}));

INSTANTIATE_TEST_SUITE_P(Null, PutRulesTest,
                         testing::Values(Row{{}, CimType::string, one, CimValue{}},
                                         Row{{}, CimType::uint16, several, CimValue{}}));

TEST(PutRules, PutARecordsValueInItsPublishedType) {
    EXPECT_EQ(service::AsPut({}).type, variant::null);
    EXPECT_EQ(service::AsPut(std::string("a")).type, variant::text);
    EXPECT_EQ(service::AsPut(qv::Reference{"C.K=1"}).value, CimValue("C.K=1"));
    EXPECT_EQ(service::AsPut(std::uint8_t{4}).type, variant::uint8);
    EXPECT_EQ(service::AsPut(std::int32_t{-4}).value, Number(-4));
    EXPECT_EQ(service::AsPut(true).type, variant::boolean);
    EXPECT_EQ(service::AsPut(true).value, Number(1));
    EXPECT_EQ(service::AsPut(std::vector<std::int32_t>{1, 2}).type, arrayOfInt32);
    EXPECT_EQ(service::AsPut(std::vector<std::string>{"a"}).type, arrayOfText);
}

}  // namespace
}  // namespace qv::test
