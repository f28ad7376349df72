#include <gtest/gtest.h>

#include "qvsata/cim/Snapshot.h"
#include "qvsata/wql/Wql.h"

namespace qv::test {
namespace {

using namespace service;

// Returns whether a recorded object, whose class does not declare types, meets a condition.
bool Holds(const std::string& condition) {
    static const Snapshot object({
        {"Status", CimType::string, false, "OK"},
        {"Index", CimType::sint32, false, std::int64_t{2}},
        {"Negative", CimType::sint32, false, std::int64_t{-5}},
        {"Size", CimType::string, false, "500105249280"},
        {"Huge", CimType::string, false, "18446744073709551615"},
        {"Bootable", CimType::boolean, false, true},
        {"Ratio", CimType::real64, false, 0.5},
        {"Nothing", CimType::string, false, CimValue{}},
        {"List", CimType::sint32, true, std::vector<std::int64_t>{3, 4}},
        {"__CLASS", CimType::string, false, "Win32_DiskDrive"},
        {"__DERIVATION", CimType::string, true,
         std::vector<std::string>{"CIM_DiskDrive", "CIM_MediaAccessDevice"}},
    });
    const auto query = std::get<SelectQuery>(ParseWql("SELECT * FROM C WHERE " + condition));
    return query.Accepts(object);
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
    EXPECT_FALSE(Holds("Nothing <> NULL"));
    EXPECT_FALSE(Holds("Status = NULL"));
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
    EXPECT_TRUE(Holds("Nothing = NULL"));
    EXPECT_TRUE(Holds("Missing = NULL"));
    EXPECT_TRUE(Holds("Status <> NULL"));
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
    EXPECT_TRUE(query.Accepts(Snapshot({{"Path", CimType::string, false, R"(\\.\A\B"')"}})));
}

}  // namespace
}  // namespace qv::test
