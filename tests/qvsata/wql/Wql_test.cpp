#include "qvsata/wql/Wql.h"

#include <gmock/gmock.h>

#include "qvsata/cim/Snapshot.h"
#include "tests/qvsata/wql/RepeatedText.h"

namespace qv::test {
namespace {

using namespace service;
using testing::ElementsAre;
using testing::IsEmpty;

template <typename Query>
Query ParsedQuery(std::string_view text) {
    return std::get<Query>(ParseWql(text));
}

// Returns the error message for a text; "" for a valid query.
std::string QueryRefusal(std::string_view text) {
    try {
        ParseWql(text);
        return {};
    } catch (const WqlError& error) {
        return error.what();
    }
}

TEST(Wql, ReadsASelectOfEverything) {
    const auto query = ParsedQuery<SelectQuery>("SELECT * FROM Win32_DiskDrive");
    EXPECT_THAT(query.properties, IsEmpty());
    EXPECT_EQ(query.className, "Win32_DiskDrive");
    EXPECT_EQ(query.where, nullptr);
    EXPECT_FALSE(query.AsksForClasses());
}

TEST(Wql, ReadsAListOfProperties) {
    const auto query =
        ParsedQuery<SelectQuery>("select DeviceID ,Size,\t__PATH\r\nfrom Win32_DiskDrive");
    EXPECT_THAT(query.properties, ElementsAre(testing::Field(&WqlName::text, "DeviceID"),
                                              testing::Field(&WqlName::text, "Size"),
                                              testing::Field(&WqlName::text, "__PATH")));
    EXPECT_EQ(query.properties[1].column, 18U);
}

TEST(Wql, KnowsAQueryOnClasses) {
    const auto query = ParsedQuery<SelectQuery>(
        R"(SELECT * FROM meta_class WHERE __CLASS = "QV_WinComputerSystem")");
    EXPECT_TRUE(query.AsksForClasses());
    EXPECT_TRUE(
        query.Accepts(Snapshot({{"__CLASS", CimType::string, false, "qv_wincomputersystem"}})));
}

TEST(Wql, AcceptsEveryObjectWithoutWhere) {
    EXPECT_TRUE(ParsedQuery<SelectQuery>("SELECT * FROM C").Accepts(Snapshot({})));
}

TEST(Wql, ReadsAssociators) {
    const auto query = ParsedQuery<AssociatorsQuery>(
        R"(ASSOCIATORS OF {Win32_IDEController.DeviceID="PCI\\VEN&REV_02\\3"} where assocclass=Win32_PnPDevice)");
    EXPECT_EQ(query.path.className, "Win32_IDEController");
    ASSERT_EQ(query.path.keys.size(), 1U);
    EXPECT_EQ(query.path.keys[0].value, R"(PCI\VEN&REV_02\3)");
    EXPECT_EQ(query.assocClass, "Win32_PnPDevice");
    EXPECT_EQ(query.resultClass, "");
    EXPECT_FALSE(query.classDefsOnly);
}

TEST(Wql, ReadsAllWordsOfAssociatorsInAnyOrder) {
    const auto query = ParsedQuery<AssociatorsQuery>(
        "associators of { C='v' } WHERE ResultRole = Dependent Role=Antecedent KEYSONLY "
        "ResultClass =R AssocClass= A schemaonly RequiredQualifier=Q requiredassocqualifier=AQ");
    EXPECT_EQ(query.assocClass, "A");
    EXPECT_EQ(query.resultClass, "R");
    EXPECT_EQ(query.role, "Antecedent");
    EXPECT_EQ(query.resultRole, "Dependent");
    EXPECT_EQ(query.requiredQualifier, "Q");
    EXPECT_EQ(query.requiredAssocQualifier, "AQ");
    EXPECT_TRUE(query.keysOnly);
    EXPECT_TRUE(query.schemaOnly);
    EXPECT_FALSE(query.classDefsOnly);
}

TEST(Wql, ReadsReferences) {
    const auto query =
        ParsedQuery<ReferencesQuery>("REFERENCES OF {C.K=1} WHERE ResultClass=R Role=Antecedent");
    EXPECT_EQ(query.path.className, "C");
    EXPECT_EQ(query.resultClass, "R");
    EXPECT_EQ(query.role, "Antecedent");
    EXPECT_FALSE(query.classDefsOnly);
}

TEST(Wql, LeavesBracesAndQuotesInsideAQuotedKeyToTheKey) {
    const auto query = ParsedQuery<AssociatorsQuery>(R"(ASSOCIATORS OF {C.K="a}\"}",L='}"'})");
    ASSERT_EQ(query.path.keys.size(), 2U);
    EXPECT_EQ(query.path.keys[0].value, R"(a}"})");
    EXPECT_EQ(query.path.keys[1].value, R"(}")");
}

TEST(Wql, RefusesWhatIsNoQueryAndSaysWhere) {
    EXPECT_EQ(QueryRefusal(""), "column 1: expected SELECT, ASSOCIATORS OF or REFERENCES OF");
    EXPECT_EQ(QueryRefusal("DELETE x"),
              "column 1: expected SELECT, ASSOCIATORS OF or REFERENCES OF");
    EXPECT_EQ(QueryRefusal("SELECT FROM C"), "column 8: expected a property name or *");
    EXPECT_EQ(QueryRefusal("SELECT *, a FROM C"), "column 9: expected FROM");
    EXPECT_EQ(QueryRefusal("SELECT a, FROM C"), "column 11: expected a property name or *");
    EXPECT_EQ(QueryRefusal("SELECT *"), "column 9: expected FROM");
    EXPECT_EQ(QueryRefusal("SELECT * FROM"), "column 14: expected a class name");
    EXPECT_EQ(QueryRefusal("SELECT * FROM 'C'"), "column 16: expected a class name");
    EXPECT_EQ(QueryRefusal("SELECT * FROM C D"), "column 17: unexpected text after the query");
    EXPECT_EQ(QueryRefusal("SELECT * FROM C;"), "column 16: unexpected character");
    EXPECT_EQ(QueryRefusal("SELECT * FROM C WHERE"), "column 22: expected a property name");
}

TEST(Wql, RefusesABrokenCondition) {
    const std::string select = "SELECT * FROM C WHERE ";
    EXPECT_EQ(QueryRefusal(select + "a"), "column 24: expected a comparison");
    EXPECT_EQ(QueryRefusal(select + "a ="),
              "column 26: expected a text, a number, TRUE, FALSE or NULL");
    EXPECT_EQ(QueryRefusal(select + "a = b"),
              "column 27: expected a text, a number, TRUE, FALSE or NULL");
    EXPECT_EQ(QueryRefusal(select + "a = 'x"), "column 27: the quote is not closed");
    EXPECT_EQ(QueryRefusal(select + "a = 12x"), "column 27: not a number");
    EXPECT_EQ(QueryRefusal(select + "a = 1.2.3"), "column 27: not a number");
    EXPECT_EQ(QueryRefusal(select + "(a = 1"), "column 29: expected )");
    EXPECT_EQ(QueryRefusal(select + "a = 1 AND"), "column 32: expected a property name");
    EXPECT_EQ(QueryRefusal(select + "a IS 1"), "column 28: expected NULL");
    EXPECT_EQ(QueryRefusal(select + "a LIKE 1"), "column 30: expected a pattern in quotes");
    EXPECT_EQ(QueryRefusal(select + "a LIKE '[a'"), "column 31: the pattern's [ is not closed");
    EXPECT_EQ(QueryRefusal(select + "a ISA 'X'"), "column 23: ISA asks for __CLASS or __THIS");
    EXPECT_EQ(QueryRefusal(select + "__THIS ISA X"), "column 34: expected a class name in quotes");
    EXPECT_EQ(QueryRefusal(select + "__THIS ISA 'X\ny'"), "column 35: not a class name");
    EXPECT_EQ(QueryRefusal(select + "__THIS ISA '1X'"), "column 35: not a class name");
    EXPECT_EQ(QueryRefusal(select + "__THIS ISA ''"), "column 35: not a class name");
    EXPECT_EQ(QueryRefusal(select + "__THIS ISA '_X1'"), "");
    EXPECT_EQ(QueryRefusal(select + "1 = 2"), "column 27: expected a property name");
}

TEST(Wql, RefusesABrokenPathOrItsWords) {
    EXPECT_EQ(QueryRefusal("ASSOCIATORS {C=1}"), "column 14: expected OF");
    EXPECT_EQ(QueryRefusal("ASSOCIATORS OF C"), "column 16: expected an object path in braces");
    EXPECT_EQ(QueryRefusal("ASSOCIATORS OF {C='x}"), "column 16: the brace is not closed");
    EXPECT_EQ(QueryRefusal("ASSOCIATORS OF {}"),
              "column 17: not an object path: expected a class name");
    EXPECT_EQ(QueryRefusal("ASSOCIATORS OF { C.K = 1}"),
              "column 21: not an object path: expected = after the key name");
    EXPECT_EQ(QueryRefusal("ASSOCIATORS OF {C=1} WHERE"), "column 27: unknown word after WHERE");
    EXPECT_EQ(QueryRefusal("ASSOCIATORS OF {C=1} WHERE Colour=1"),
              "column 28: unknown word after WHERE");
    EXPECT_EQ(QueryRefusal("ASSOCIATORS OF {C=1} WHERE Role"), "column 32: expected =");
    EXPECT_EQ(QueryRefusal("ASSOCIATORS OF {C=1} WHERE Role=A Role=B"),
              "column 35: Role is given twice");
    EXPECT_EQ(QueryRefusal("REFERENCES OF {C=1} WHERE AssocClass=A"),
              "column 27: unknown word after WHERE");
}

TEST(Wql, RefusesWordsOfAssociatorsThatExcludeEachOther) {
    EXPECT_EQ(QueryRefusal("ASSOCIATORS OF {C=1} WHERE ResultClass=A ClassDefsOnly"),
              "column 42: ClassDefsOnly excludes ResultClass");
    EXPECT_EQ(QueryRefusal("REFERENCES OF {C=1} WHERE ClassDefsOnly ResultClass=A"),
              "column 41: ClassDefsOnly excludes ResultClass");
    EXPECT_EQ(QueryRefusal("REFERENCES OF {C} WHERE SchemaOnly ClassDefsOnly"),
              "column 36: ClassDefsOnly excludes SchemaOnly");
    EXPECT_EQ(QueryRefusal("REFERENCES OF {C=1} WHERE RequiredAssocQualifier=A"),
              "column 27: unknown word after WHERE");
}

TEST(Wql, RefusesACommaBetweenTheWordsOfAssociators) {
    EXPECT_EQ(QueryRefusal("ASSOCIATORS OF {C=1} WHERE Role=A, ResultRole=B"),
              "column 34: unknown word after WHERE");
}

TEST(Wql, RefusesBottomlessNesting) {
    const std::string select = "SELECT * FROM C WHERE ";
    EXPECT_THAT(QueryRefusal(select + std::string(100000, '(')),
                testing::HasSubstr("the condition is nested too deeply"));
    EXPECT_THAT(QueryRefusal(select + RepeatedText(1000, "NOT ") + "a = 1"),
                testing::HasSubstr("the condition is nested too deeply"));
}

TEST(Wql, AcceptsLongConditions) {
    EXPECT_TRUE(ParsedQuery<SelectQuery>("SELECT * FROM C WHERE a = 1" +
                                         RepeatedText(5000, " AND a = 1 OR a = 1"))
                    .Accepts(Snapshot({{"a", CimType::sint32, false, std::int64_t{1}}})));
}

}  // namespace
}  // namespace qv::test
