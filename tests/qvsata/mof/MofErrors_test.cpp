// Wrong grammar and values in MOF files, each refused with its position.
#include <gmock/gmock.h>

#include <array>
#include <fstream>

#include "tests/qvsata/mof/ErrorOf.h"
#include "tests/support/TemporaryFile.h"

namespace qv::test {
namespace {

using namespace service;

struct Wrong {
    const char* text;
    const char* message;
};

class MofErrorsTest : public testing::TestWithParam<Wrong> {};

TEST_P(MofErrorsTest, NameTheirPlaceAndTheirCauseInOneLine) {
    EXPECT_EQ(ErrorOf(GetParam().text), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Syntax, MofErrorsTest,
    testing::Values(
        Wrong{"klass A {};", "a.mof:1:1: declaration expected before 'klass'"},
        Wrong{"class {};", "a.mof:1:7: name of a class expected before '{'"},
        Wrong{"class A : {};", "a.mof:1:11: name of the superclass expected before '{'"},
        Wrong{"class A as B {};", "a.mof:1:12: alias expected before 'B'"},
        Wrong{"class A {}", "a.mof:1:11: ';' expected before the end of the file"},
        Wrong{"class A\n{\n  string X\n};", "a.mof:4:1: ';' expected before '}'"},
        Wrong{"class A { string; };", "a.mof:1:17: name of a property expected before ';'"},
        Wrong{"class A { string X[; };", "a.mof:1:20: ']' expected before ';'"},
        Wrong{"class A { string X = ; };", "a.mof:1:22: value expected before ';'"},
        Wrong{"class A { string X = $P $Q; };", "a.mof:1:25: ';' expected before '$Q'"},
        Wrong{"class A { uint16 X[] = {1; };", "a.mof:1:26: '}' expected before ';'"},
        Wrong{"class A { \"x\" };", "a.mof:1:11: type expected before a value"},
        Wrong{"class A { uint32 F(", "a.mof:1:20: ')' expected before the end of the file"},
        Wrong{"[Key class A {};", "a.mof:1:6: ']' expected before 'class'"},
        Wrong{"[Key: Red] class A {};", "a.mof:1:7: flavor of a qualifier expected before 'Red'"},
        Wrong{"[5] class A {};", "a.mof:1:2: name of a qualifier expected before a value"},
        Wrong{"instance A {};", "a.mof:1:10: 'of' expected before 'A'"},
        Wrong{"instance of A { B 1; };", "a.mof:1:19: '=' expected before a value"},
        Wrong{"#pragma namespace(5)", "a.mof:1:19: argument expected before a value"},
        Wrong{"#pragma #pragma", "a.mof:1:9: name of a pragma expected before '#pragma'"},
        Wrong{"Qualifier X : boolean", "a.mof:1:22: ';' expected before the end of the file"}));

INSTANTIATE_TEST_SUITE_P(
    Classes, MofErrorsTest,
    testing::Values(
        Wrong{"class A : B {};",
              "a.mof:1:11: superclass B is not defined (WBEM_E_INVALID_SUPERCLASS 0x8004100D)"},
        Wrong{"class A {};\nclass a {};", "a.mof:2:7: class a is defined already"},
        Wrong{"class __Event {};", "a.mof:1:7: class __Event is defined already"},
        Wrong{"class A { uint128 X; };",
              "a.mof:1:11: unknown type uint128 (WBEMMOF_E_UNRECOGNIZED_TYPE 0x8004400B)"},
        Wrong{"class A { string X; uint16 x; };",
              "a.mof:1:28: property x is declared twice (WBEMMOF_E_DUPLICATE_PROPERTY 0x8004401B)"},
        Wrong{"class A { [key] string X[]; };",
              "a.mof:1:24: key X is an array (WBEM_E_CANNOT_BE_KEY 0x8004101F)"},
        Wrong{"class A { [key] real32 X; };",
              "a.mof:1:24: key X is of type real32 (WBEM_E_CANNOT_BE_KEY 0x8004101F)"},
        Wrong{"class A { B ref X; };", "a.mof:1:11: class B of the reference X is not defined"},
        Wrong{"[Q, q] class A {};",
              "a.mof:1:5: qualifier q is stated twice (WBEMMOF_E_DUPLICATE_QUALIFIER 0x80044021)"},
        Wrong{"[Q({1, \"a\"})] class A {};",
              "a.mof:1:2: qualifier Q has no usable value (WBEM_E_INVALID_QUALIFIER_TYPE "
              "0x80041029)"},
        Wrong{"[Q(18446744073709551615)] class A {};",
              "a.mof:1:2: qualifier Q has no usable value (WBEM_E_INVALID_QUALIFIER_TYPE "
              "0x80041029)"}));

INSTANTIATE_TEST_SUITE_P(
    Overrides, MofErrorsTest,
    testing::Values(
        Wrong{"class A { string X; }; class B : A { string X; };",
              "a.mof:1:45: property X of A is redeclared without Override"},
        Wrong{"class A {}; class B : A { [Override(\"X\")] string X; };",
              "a.mof:1:50: property X overrides nothing"},
        Wrong{"class A { uint16 X[]; }; class B : A { [Override(\"X\")] uint16 X; };",
              "a.mof:1:63: property X changes its type from uint16[] to uint16 "
              "(WBEM_E_UPDATE_TYPE_MISMATCH 0x80041052)"},
        Wrong{"class A { string X; }; class B : A { [Override(\"X\")] A ref X; };",
              "a.mof:1:60: property X changes its type from string to ref "
              "(WBEM_E_UPDATE_TYPE_MISMATCH 0x80041052)"},
        Wrong{"class A { [key] string X; }; class B : A { [key] string Y; };",
              "a.mof:1:57: property Y adds to inherited keys"},
        Wrong{"class A { [key] string X; string Y; };\n"
              "class B : A { [key, Override(\"Y\")] string Y; };",
              "a.mof:2:43: property Y adds to inherited keys"},
        Wrong{"class A { [key] string X; };\nclass B : A { [key(false), Override(\"X\")] string X; "
              "};",
              "a.mof:2:50: qualifier Key of the property X takes only TRUE"},
        Wrong{"class C {}; class A { C ref X; };\nclass B : A { [Override(\"X\")] A ref X; };",
              "a.mof:2:31: class A of the reference X is no C"}));

INSTANTIATE_TEST_SUITE_P(Values, MofErrorsTest,
                         testing::Values(Wrong{"class A { uint8 X = 256; };",
                                               "a.mof:1:21: property X takes a value of type uint8 "
                                               "(WBEMMOF_E_OUT_OF_RANGE 0x8004401D)"},
                                         Wrong{"class A { uint16 X = -1; };",
                                               "a.mof:1:22: property X takes a value of type "
                                               "uint16 (WBEMMOF_E_OUT_OF_RANGE 0x8004401D)"},
                                         Wrong{"class A { sint8 X = -129; };",
                                               "a.mof:1:21: property X takes a value of type sint8 "
                                               "(WBEMMOF_E_OUT_OF_RANGE 0x8004401D)"},
                                         Wrong{"class A { real32 X = -3.5e38; };",
                                               "a.mof:1:22: property X takes a value of type "
                                               "real32 (WBEMMOF_E_OUT_OF_RANGE 0x8004401D)"},
                                         Wrong{"class A { string X = 5; };",
                                               "a.mof:1:22: property X takes a value of type "
                                               "string (WBEMMOF_E_TYPE_MISMATCH 0x80044015)"},
                                         Wrong{"class A { uint16 X = \"5\"; };",
                                               "a.mof:1:22: property X takes a value of type "
                                               "uint16 (WBEMMOF_E_TYPE_MISMATCH 0x80044015)"},
                                         Wrong{"class A { boolean X = 1; };",
                                               "a.mof:1:23: property X takes a value of type "
                                               "boolean (WBEMMOF_E_TYPE_MISMATCH 0x80044015)"},
                                         Wrong{"class A { uint16 X[] = 5; };",
                                               "a.mof:1:24: property X takes a value of type "
                                               "uint16[] (WBEMMOF_E_TYPE_MISMATCH 0x80044015)"},
                                         Wrong{"class A { uint16 X[] = {5, null}; };",
                                               "a.mof:1:24: property X takes a value of type "
                                               "uint16[] (WBEMMOF_E_NULL_ARRAY_ELEM 0x80044020)"},
                                         Wrong{
                                             "class A { uint16 X = {5}; };",
                                             "a.mof:1:22: property X takes a value of type uint16 "
                                             "(WBEMMOF_E_UNEXPECTED_ARRAY_INIT 0x8004400F)"},
                                         Wrong{"class A { uint16 X = 1.5; };",
                                               "a.mof:1:22: property X takes a value of type "
                                               "uint16 (WBEMMOF_E_TYPE_MISMATCH 0x80044015)"},
                                         Wrong{"class A { datetime X = \"2026-01-02\"; };",
                                               "a.mof:1:24: property X takes a value of type "
                                               "datetime (WBEMMOF_E_TYPE_MISMATCH 0x80044015)"}));

INSTANTIATE_TEST_SUITE_P(
    Instances, MofErrorsTest,
    testing::Values(
        Wrong{"instance of A {};",
              "a.mof:1:13: class A is not defined (WBEM_E_INVALID_CLASS 0x80041010)"},
        Wrong{"[Abstract] class A {}; instance of A {};", "a.mof:1:36: class A is abstract"},
        Wrong{"class A {}; instance of A { X = 1; };", "a.mof:1:29: class A has no property X"},
        Wrong{"class A { string X; }; instance of A { X = \"1\"; x = \"2\"; };",
              "a.mof:1:49: property x has a value already"},
        Wrong{"class A { [key] string X; }; instance of A {};",
              "a.mof:1:42: key X has no value (WBEM_E_ILLEGAL_NULL 0x80041028)"},
        Wrong{"instance of __InstanceProviderRegistration { provider = $P; };",
              "a.mof:1:57: alias $P is not defined"},
        Wrong{"instance of __Namespace { Name = $P; };",
              "a.mof:1:34: property Name takes a value of type string (WBEMMOF_E_UNEXPECTED_ALIAS "
              "0x8004400E)"},
        Wrong{"instance of __Win32Provider as $P { Name = \"a\"; };\n"
              "instance of __Win32Provider as $P { Name = \"b\"; };",
              "a.mof:2:13: alias $P is defined already (WBEMMOF_E_MULTIPLE_ALIASES 0x80044024)"}));

INSTANTIATE_TEST_SUITE_P(
    Pragmas, MofErrorsTest,
    testing::Values(
        Wrong{"#pragma magic(\"x\")",
              "a.mof:1:9: unknown pragma magic (WBEMMOF_E_INVALID_PRAGMA 0x80044012)"},
        Wrong{"#pragma namespace",
              "a.mof:1:9: pragma namespace needs the path of a namespace "
              "(WBEMMOF_E_INVALID_NAMESPACE_SYNTAX 0x80044013)"},
        Wrong{"#pragma deleteclass(\"A\", fail)", "a.mof:1:9: nothing to delete: A"},
        Wrong{"#pragma deleteclass(\"__Event\", fail)", "a.mof:1:9: nothing to delete: __Event"},
        Wrong{"#pragma deleteinstance(\"A=@\", fail)", "a.mof:1:9: nothing to delete: A=@"}));

TEST(MofErrors, ReadMofLeavesEverythingAsItWasAfterAnError) {
    Namespaces namespaces;
    ReadMof("class A {};", "a.mof", namespaces);
    EXPECT_THROW(ReadMof("#pragma deleteclass(\"A\", fail)\nclass B {};\n"
                         "#pragma namespace(\"root\\\\X\")\nclass C : D {};",
                         "b.mof", namespaces),
                 MofError);
    EXPECT_NE(namespaces.Find("root\\default")->Find("A"), nullptr);
    EXPECT_EQ(namespaces.Find("root\\default")->Find("B"), nullptr);
    EXPECT_EQ(namespaces.Find("root\\X"), nullptr);
}

TEST(MofErrors, ReadMofNamesTheFileThatIsWrongAmongSeveral) {
    Namespaces namespaces;
    const std::array files{MofSource{"a.mof", "class A { B ref X; };"},
                           MofSource{"b.mof", "class C {};"}};
    try {
        ReadMof(files, namespaces);
        FAIL() << "read";
    } catch (const MofError& error) {
        EXPECT_STREQ(error.what(), "a.mof:1:11: class B of the reference X is not defined");
    }
}

TEST(MofErrors, ReadMofForgetsAliasesAtTheEndOfTheFile) {
    Namespaces namespaces;
    const std::array files{
        MofSource{"a.mof", "instance of __Win32Provider as $P { Name = \"a\"; };"},
        MofSource{"b.mof", "instance of __EventProviderRegistration { provider = $P; };"}};
    EXPECT_THROW(ReadMof(files, namespaces), MofError);
}

/// Returns a class and a chain of so many below it, a line each.
std::string ChainOfClasses(int length) {
    std::string text = "class C0 {};\n";
    for (int number = 1; number <= length; ++number) {
        text += "class C" + std::to_string(number) + " : C" + std::to_string(number - 1) + " {};\n";
    }
    return text;
}

TEST(MofErrors, ReadMofTakesAClassWith256AncestorsAndNoMore) {
    EXPECT_EQ(ErrorOf(ChainOfClasses(256)), "no error");
    EXPECT_EQ(ErrorOf(ChainOfClasses(8000)),
              "a.mof:258:14: class C257 has more than 256 ancestors");
}

/// Returns the error of loading a file of at most a mebibyte.
std::string LoadingError(const std::string& file) {
    try {
        LoadMofFiles(std::array{file}, 1U << 20U);
    } catch (const MofError& error) {
        return error.what();
    }
    return "no error";
}

TEST(MofErrors, LoadMofFilesNamesAFileThatCannotBeRead) {
    EXPECT_EQ(LoadingError("no/such/file.mof"), "no/such/file.mof: there is no such file");
    EXPECT_EQ(LoadingError("."), ".: a directory, not a file");
}

TEST(MofErrors, LoadMofFilesTakesAFileOfTheGreatestSizeAndNoLarger) {
    const TemporaryFile file;
    std::ofstream(file.Path()) << std::string(1U << 20U, ' ');
    EXPECT_EQ(LoadingError(file.Path().string()), "no error");
    std::ofstream(file.Path(), std::ios::app) << ' ';
    EXPECT_EQ(LoadingError(file.Path().string()),
              file.Path().string() + ": larger than 1 MiB (--limit)");
}

}  // namespace
}  // namespace qv::test
