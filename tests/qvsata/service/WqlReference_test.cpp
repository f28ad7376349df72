// What the public reference of WQL says about each operator, type and null. A group of rows names
// the document that it follows; "silent" marks what the documents do not say and this service
// chose.

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "qvsata/cim/StatusCodes.h"
#include "tests/qvsata/service/MofNamespace.h"

namespace qv::test {
namespace {

using namespace service;

constexpr std::string_view valuesMof = R"(
class Values {
    [key] string Name;
    sint8 S8; uint8 U8; sint16 S16; uint16 U16; sint32 S32; uint32 U32; sint64 S64; uint64 U64;
    real32 R32; real64 R64; boolean Flag; string Text; datetime When; datetime Lasting;
    datetime Open; Values ref Other; uint16 Codes[]; string Nothing; uint64 NoSize; uint64 Size;
    boolean NoFlag; datetime Never;
};
class MoreValues : Values { string Extra; };
instance of Values {
    Name = "one";
    S8 = -8; U8 = 8; S16 = -16; U16 = 16; S32 = -32; U32 = 4000000000;
    S64 = -9223372036854775808; U64 = 18446744073709551615;
    R32 = 0.1; R64 = 0.1; Flag = TRUE; Text = "Cat's \"Disk\" 100% C:\\x";
    When = "19980416130000.000000+060"; Lasting = "00000001120032.000000:000";
    Open = "19980416******.000000+***";
    Other = "\\\\SRV\\root\\test:Values.Name=\"other\""; Codes = {2, 5}; Size = 480103981056;
};)";

enum class Outcome { met, notMet, refused };

void PrintTo(Outcome outcome, std::ostream* out) {
    *out << (outcome == Outcome::met ? "met" : outcome == Outcome::notMet ? "not met" : "refused");
}

struct Row {
    std::string condition;
    Outcome outcome;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.condition;
}

class WqlReference : public testing::TestWithParam<Row> {};

Outcome OutcomeOf(const Answer& answer) {
    if (answer.status == status::invalidQuery) {
        return Outcome::refused;
    }
    EXPECT_EQ(answer.status, Status::noError) << answer.message;
    return answer.objects.empty() ? Outcome::notMet : Outcome::met;
}

auto Rows(std::vector<Row> rows) {
    return testing::ValuesIn(std::move(rows));
}

TEST_P(WqlReference, HasThisOutcome) {
    static const auto values = test::NamespaceOf(valuesMof);
    EXPECT_EQ(OutcomeOf(values->Query("SELECT * FROM Values WHERE " + GetParam().condition)),
              GetParam().outcome);
}

using enum Outcome;

// "WQL Operators", "WHERE Clause": =, <, >, <=, >= and != or <> on every type of number.
INSTANTIATE_TEST_SUITE_P(Numbers, WqlReference,
                         Rows({{"S8 = -8", met},
                               {"S8 < -7", met},
                               {"S8 > -8", notMet},
                               {"U8 = 8", met},
                               {"U8 <> 8", notMet},
                               {"U8 != 9", met},
                               {"S16 <= -16", met},
                               {"S16 >= -15", notMet},
                               {"U16 >= 16", met},
                               {"U16 < 9", notMet},
                               {"U16 < 100", met},
                               {"S32 = -32", met},
                               {"S32 > -100", met},
                               {"U32 = 4000000000", met},
                               {"U32 > 3999999999", met},
                               {"S64 = -9223372036854775808", met},
                               {"S64 < -9223372036854775807", met},
                               {"S64 > -9223372036854775808", notMet},
                               {"U64 = 18446744073709551615", met},
                               {"U64 > 18446744073709551614", met},
                               {"U64 < 18446744073709551615", notMet},
                               {"U64 <> 18446744073709551614", met},
                               {"16 = U16", met},
                               {"9 < U16", met},
                               {"R64 = 0.1", met},
                               {"R64 < 1e3", met},
                               {"R64 >= .5", notMet},
                               {"R32 = 0.1", met},
                               {"R32 <> 0.1", notMet}}));

// "WHERE Clause": the value of the constant must be of the correct type for the property.
INSTANTIATE_TEST_SUITE_P(ConstantsOfAnotherType, WqlReference,
                         Rows({{"U16 = 'two'", refused},
                               {"U16 <> 'two'", refused},
                               {"U64 > 'x'", refused},
                               {"S8 = ''", refused},
                               {"Text = 5", refused},
                               {"Text = TRUE", refused},
                               {"Flag = 'maybe'", refused},
                               {"Flag = 2", refused},
                               {"When = 5", refused},
                               {"When = 'yesterday'", refused},
                               {"Other = 5", refused},
                               {"Other = 'no path'", refused},
                               {"NOT (U16 = 'two')", refused},
                               {"U16 = 16 OR U16 = 'two'", refused}}));

// Silent: a text that is a number stands for the number, and a number need not fit the type.
INSTANTIATE_TEST_SUITE_P(NumbersInOtherForms, WqlReference,
                         Rows({{"Size > '1000000000000'", notMet},
                               {"Size < '1000000000000'", met},
                               {"Size = '480103981056'", met},
                               {"U64 > '18446744073709551614'", met},
                               {"U16 > '9'", met},
                               {"U16 = '+16'", met},
                               {"U16 = 70000", notMet},
                               {"U16 < 70000", met},
                               {"U8 = -1", notMet},
                               {"U16 < 16.5", met},
                               {"U16 = 16.0", met},
                               {"U64 < 18446744073709551616", met},
                               {"S64 > -1e30", met},
                               {"U16 <> TRUE", met}}));

// "WHERE Clause": only =, != and <>; TRUE is equivalent to 1 and FALSE to 0. "LIKE Operator" has
// "TRUE" in quotes, "WQL (SQL for WMI)" says that TRUE evaluates to -1.
INSTANTIATE_TEST_SUITE_P(Booleans, WqlReference,
                         Rows({{"Flag = TRUE", met},
                               {"Flag = 1", met},
                               {"Flag = -1", met},
                               {"Flag <> FALSE", met},
                               {"Flag != 0", met},
                               {"Flag = FALSE", notMet},
                               {"Flag = 0", notMet},
                               {"Flag = \"true\"", met},
                               {"Flag = 'False'", notMet},
                               {"Flag <= TRUE", refused},
                               {"Flag >= 0", refused},
                               {"Flag > FALSE", refused},
                               {"Flag < 'TRUE'", refused}}));

// "WHERE Clause": comparisons ignore case; backslash and quotes are escaped by a backslash.
INSTANTIATE_TEST_SUITE_P(Texts, WqlReference,
                         Rows({{R"(Text = "cat's \"DISK\" 100% c:\\X")", met},
                               {"Name = 'ONE'", met},
                               {"Name <> 'One'", notMet},
                               {"Name > 'ON'", met},
                               {"Name < 'P'", met},
                               {"Name >= 'one'", met},
                               {"Name <= 'oNE'", met},
                               {"'one' = Name", met},
                               {"'a' > Name", notMet}}));

// "CIM_DATETIME": comparisons work on one offset, others are converted to UTC; a date with
// asterisks is compared character by character, for equivalence only. "Interval Format": length.
INSTANTIATE_TEST_SUITE_P(Dates, WqlReference,
                         Rows({{"When = '19980416130000.000000+060'", met},
                               {"When = '19980416120000.000000+000'", met},
                               {"When = '19980416073000.000000-270'", met},
                               {"When < '19980416125959.999999+000'", met},
                               {"When > '19980416130000.000000+000'", notMet},
                               {"When <> '19980416130000.000000+000'", met},
                               {"When = '19980416130000.000000+***'", notMet},
                               {"When <> '19980416130000.000000+***'", met},
                               {"When < '19980416******.000000+***'", refused},
                               {"Open = '19980416******.000000+***'", met},
                               {"Open = '19980416000000.000000+000'", notMet},
                               {"Open > '19970101000000.000000+000'", notMet},
                               {"When = '19980231000000.000000+000'", refused},
                               {"When = '19980416250000.000000+000'", refused},
                               {"Lasting = '00000001120032.000000:000'", met},
                               {"Lasting > '00000000235959.999999:000'", met},
                               {"Lasting < '00000001120032.000000:000'", notMet},
                               {"Lasting > '19980416120000.000000+000'", notMet}}));

// "WQL-Supported Date Formats": forms that do not depend on the locale. Silent: they are in UTC.
// Refused are forms whose order of day and month is the locale's.
INSTANTIATE_TEST_SUITE_P(DateForms, WqlReference,
                         Rows({{"When > '1998-04-16'", met},
                               {"When < '1998/04/17'", met},
                               {"When > '1998.04.17'", notMet},
                               {"When >= '19980416'", met},
                               {"When = '1998-04-16 12:00'", met},
                               {"When = '1998-04-16 12:00:00'", met},
                               {"When < '1998-04/17'", refused},
                               {"When < '04-17-1998'", refused},
                               {"When < 'Jan 21 1932'", refused},
                               {"When = '1998-04-16 12:00:00:000'", refused}}));

// Silent: references are equal if they name one object, and have no order.
INSTANTIATE_TEST_SUITE_P(References, WqlReference,
                         Rows({{R"(Other = "Values.Name='other'")", met},
                               {R"(Other = "VALUES.NAME=\"OTHER\"")", met},
                               {R"(Other = "\\\\srv\\ROOT\\Test:values='other'")", met},
                               {R"(Other = "Values.Name='one'")", notMet},
                               {R"(Other <> "Values.Name='one'")", met},
                               {R"(Other <> "values='other'")", notMet},
                               {R"(Other < "Values.Name='one'")", refused}}));

// "Querying with WQL": no queries of array datatypes. Silent: IS NULL asks whether it has a value.
INSTANTIATE_TEST_SUITE_P(Arrays, WqlReference,
                         Rows({{"Codes = 5", refused},
                               {"Codes <> 5", refused},
                               {"Codes = 'x'", refused},
                               {"Codes LIKE '5'", refused},
                               {"Codes = NULL", refused},
                               {"NOT Codes = 5", refused},
                               {"__DERIVATION = 'x'", refused},
                               {"Codes IS NULL", notMet},
                               {"Codes IS NOT NULL", met}}));

// "WQL Operators": IS and IS NOT only with NULL. "WHERE Clause": >= null is invalid.
INSTANTIATE_TEST_SUITE_P(Nulls, WqlReference,
                         Rows({{"Nothing IS NULL", met},
                               {"Nothing IS NOT NULL", notMet},
                               {"Text IS NULL", notMet},
                               {"Text IS NOT NULL", met},
                               {"NoFlag IS NULL", met},
                               {"Never IS NULL", met},
                               {"U16 IS 16", refused},
                               {"Text IS NOT 'x'", refused},
                               {"NoFlag >= NULL", refused},
                               {"U16 < NULL", refused},
                               {"NULL >= U16", refused}}));

// Silent: = NULL and <> NULL ask as IS NULL and IS NOT NULL do; a null property compares with no
// other constant, and NOT reverses that.
INSTANTIATE_TEST_SUITE_P(ComparisonsWithNull, WqlReference,
                         Rows({{"Nothing = NULL", met},
                               {"Nothing <> NULL", notMet},
                               {"Text = NULL", notMet},
                               {"Text != NULL", met},
                               {"NoFlag = NULL", met},
                               {"NoSize = NULL", met},
                               {"Never <> NULL", notMet},
                               {"NULL = Nothing", met},
                               {"Nothing = ''", notMet},
                               {"Nothing <> 'x'", notMet},
                               {"NoSize = 0", notMet},
                               {"NoSize <> 0", notMet},
                               {"NoSize < 1", notMet},
                               {"NoFlag = FALSE", notMet},
                               {"NoFlag <> TRUE", notMet},
                               {"Never < '19980416'", notMet},
                               {"Nothing LIKE '%'", notMet},
                               {"NOT Nothing = 'x'", met}}));

// "LIKE Operator": character strings; %, _, [a-f], [^a-f]; NOT stands before the name.
INSTANTIATE_TEST_SUITE_P(Like, WqlReference,
                         Rows({{"Name LIKE 'O%'", met},
                               {"Name LIKE '_ne'", met},
                               {"Name LIKE '[l-p]ne'", met},
                               {"Name LIKE '[^l-p]ne'", notMet},
                               {"Text LIKE '%100[%]%'", met},
                               {"NOT Name LIKE 'x%'", met},
                               {"__CLASS LIKE '%alue%'", met},
                               {"U16 LIKE '16'", refused},
                               {"U64 LIKE '1%'", refused},
                               {"Flag LIKE 'T%'", refused},
                               {"Name NOT LIKE 'x%'", refused}}));

// Silent: dates and references, which are delivered as texts, match as texts.
INSTANTIATE_TEST_SUITE_P(LikeOnOtherTexts, WqlReference,
                         Rows({{"When LIKE '1998%'", met}, {"Other LIKE '%other%'", met}}));

// "SELECT Statement for Data Queries": __CLASS. "ISA Operator for Schema Queries": __this ISA.
// Silent: an unknown name is an error.
INSTANTIATE_TEST_SUITE_P(Names, WqlReference,
                         Rows({{"__CLASS = 'values'", met},
                               {"__CLASS <> 'Values'", notMet},
                               {"__THIS ISA 'Values'", met},
                               {"__CLASS ISA 'MoreValues'", notMet},
                               {"__THIS ISA 'Nowhere'", refused},
                               {"Name ISA 'Values'", refused},
                               {"Nope = 1", refused},
                               {"Nope IS NULL", refused},
                               {"Nope LIKE 'x'", refused},
                               {"Extra = 'x'", refused},
                               {"__NOPE = 'x'", refused},
                               {"Name = Text", refused},
                               {"__RELPATH = 'values.name=\"ONE\"'", met}}));

// "WQL (SQL for WMI)": OR is evaluated after AND.
INSTANTIATE_TEST_SUITE_P(Combinations, WqlReference,
                         Rows({{"U8 = 8 OR U8 = 9 AND U8 = 10", met},
                               {"(U8 = 8 OR U8 = 9) AND U8 = 10", notMet},
                               {"NOT U8 = 9 AND U8 = 8", met},
                               {"NOT (U8 = 8 AND U16 = 16)", notMet}}));

}  // namespace
}  // namespace qv::test
