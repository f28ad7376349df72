#include <gtest/gtest.h>

#include <map>

#include "qvsata/wql/Wql.h"

namespace qv::test {
namespace {

using namespace service;

// Returns whether an object with a value of each kind meets a condition.
bool Holds(const std::string& condition) {
    static const std::map<std::string, CimValue, std::less<>> object = {
        {"Status", "OK"},
        {"Index", std::int64_t{2}},
        {"Negative", std::int64_t{-5}},
        {"Size", "500105249280"},
        {"Huge", "18446744073709551615"},
        {"Bootable", true},
        {"Ratio", 0.5},
        {"Nothing", CimValue{}},
        {"List", std::vector<std::int64_t>{3, 4}},
        {"__CLASS", "Win32_DiskDrive"},
        {"__DERIVATION", std::vector<std::string>{"CIM_DiskDrive", "CIM_MediaAccessDevice"}},
    };
    const auto query = std::get<SelectQuery>(ParseWql("SELECT * FROM C WHERE " + condition));
    return query.Accepts([](std::string_view name) -> std::optional<CimValue> {
        const auto found = object.find(name);
        return found == object.end() ? std::nullopt : std::optional(found->second);
    });
}

TEST(WqlConditions, ComparesTextsWithoutRegardToCase) {
    EXPECT_TRUE(Holds("Status = 'ok'"));
    EXPECT_TRUE(Holds(R"(Status = "OK")"));
    EXPECT_FALSE(Holds("Status <> 'ok'"));
    EXPECT_TRUE(Holds("Status != 'Degraded'"));
    EXPECT_TRUE(Holds("Status > 'Degraded'"));
    EXPECT_TRUE(Holds("Status <= 'ok'"));
}

TEST(WqlConditions, ComparesNumbersByValue) {
    EXPECT_TRUE(Holds("Index = 2"));
    EXPECT_TRUE(Holds("Index < 10"));
    EXPECT_TRUE(Holds("Index >= 2"));
    EXPECT_FALSE(Holds("Index > 2"));
    EXPECT_TRUE(Holds("Negative = -5"));
    EXPECT_TRUE(Holds("Index = +2"));
    EXPECT_TRUE(Holds("Index < 2.5"));
    EXPECT_TRUE(Holds("Ratio = .5"));
    EXPECT_TRUE(Holds("Ratio < 1e3"));
    EXPECT_TRUE(Holds("Index = '2'"));
    EXPECT_FALSE(Holds("Index = 'two'"));
    EXPECT_FALSE(Holds("Index <> 'two'"));
}

TEST(WqlConditions, ComparesDecimalTextWithNumbersByValue) {
    EXPECT_TRUE(Holds("Size > 9"));
    EXPECT_TRUE(Holds("Size = 500105249280"));
    EXPECT_TRUE(Holds("Huge > 18446744073709551614"));
    EXPECT_FALSE(Holds("Status > 1"));
    EXPECT_FALSE(Holds("Status < 1"));
}

TEST(WqlConditions, ComparesBooleans) {
    EXPECT_TRUE(Holds("Bootable = TRUE"));
    EXPECT_FALSE(Holds("Bootable = false"));
    EXPECT_TRUE(Holds("Bootable <> False"));
    EXPECT_TRUE(Holds("Bootable = 'true'"));
    EXPECT_TRUE(Holds("Bootable = 1"));
}

TEST(WqlConditions, IsFalseWhereOneSideIsNull) {
    EXPECT_FALSE(Holds("Nothing = 1"));
    EXPECT_FALSE(Holds("Nothing <> 1"));
    EXPECT_FALSE(Holds("Nothing = NULL"));
    EXPECT_FALSE(Holds("Status <> NULL"));
    EXPECT_FALSE(Holds("Missing = 'x'"));
    EXPECT_FALSE(Holds("Missing <> 'x'"));
    EXPECT_FALSE(Holds("Nothing LIKE '%'"));
}

TEST(WqlConditions, IsFalseForAnArray) {
    EXPECT_FALSE(Holds("List = 3"));
    EXPECT_FALSE(Holds("List <> 3"));
}

TEST(WqlConditions, TestsForNull) {
    EXPECT_TRUE(Holds("Nothing IS NULL"));
    EXPECT_TRUE(Holds("Missing is null"));
    EXPECT_FALSE(Holds("Nothing IS NOT NULL"));
    EXPECT_TRUE(Holds("Status IS NOT NULL"));
}

TEST(WqlConditions, TakesTheConstantOnEitherSide) {
    EXPECT_TRUE(Holds("'ok' = Status"));
    EXPECT_TRUE(Holds("1 < Index"));
    EXPECT_FALSE(Holds("1 >= Index"));
}

TEST(WqlConditions, MatchesPatterns) {
    EXPECT_TRUE(Holds("__CLASS LIKE 'win32[_]%'"));
    EXPECT_FALSE(Holds("NOT Status LIKE 'O_'"));
    EXPECT_FALSE(Holds("Index LIKE '2'"));
}

TEST(WqlConditions, KnowsTheParentsOfAClass) {
    EXPECT_TRUE(Holds("__CLASS ISA 'win32_diskdrive'"));
    EXPECT_TRUE(Holds("__this ISA 'CIM_MediaAccessDevice'"));
    EXPECT_FALSE(Holds("__THIS ISA 'CIM_Card'"));
}

TEST(WqlConditions, BindsNotBeforeAndBeforeOr) {
    EXPECT_TRUE(Holds("Index = 2 OR Index = 3 AND Index = 4"));
    EXPECT_FALSE(Holds("(Index = 2 OR Index = 3) AND Index = 4"));
    EXPECT_TRUE(Holds("NOT Index = 3 AND Index = 2"));
    EXPECT_TRUE(Holds("NOT (Index = 3 AND Index = 2)"));
    EXPECT_TRUE(Holds("not not Index = 2"));
}

TEST(WqlConditions, TakesABackslashInATextOnlyBeforeQuotesAndBackslashesForAnEscape) {
    const auto query =
        std::get<SelectQuery>(ParseWql(R"(SELECT * FROM C WHERE Path = "\\\\.\\A\B\"'")"));
    EXPECT_TRUE(query.Accepts([](std::string_view) { return R"(\\.\A\B"')"; }));
}

}  // namespace
}  // namespace qv::test
