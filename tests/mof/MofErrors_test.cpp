#include <gmock/gmock.h>

#include <array>

#include "qvsata/mof/MofReader.h"

namespace qv::service {
namespace {

/// The message that reading a text ends with.
std::string ErrorOf(std::string_view text) {
    Namespaces namespaces;
    try {
        ReadMof(text, "a.mof", namespaces);
    } catch (const MofError& error) {
        return error.what();
    }
    return "no error";
}

struct Wrong {
    const char* text;
    const char* message;
};

class MofErrors : public testing::TestWithParam<Wrong> {};

TEST_P(MofErrors, NameTheirPlaceAndTheirCauseInOneLine) {
    EXPECT_EQ(ErrorOf(GetParam().text), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Syntax, MofErrors,
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
    Classes, MofErrors,
    testing::Values(
        Wrong{"class A : B {};", "a.mof:1:11: superclass B is not defined"},
        Wrong{"class A {};\nclass a {};", "a.mof:2:7: class a is defined already"},
        Wrong{"class __Event {};", "a.mof:1:7: class __Event is defined already"},
        Wrong{"class A { uint128 X; };", "a.mof:1:11: unknown type uint128"},
        Wrong{"class A { string X; uint16 x; };", "a.mof:1:28: property x is declared twice"},
        Wrong{"class A { [key] string X[]; };", "a.mof:1:24: key X is an array"},
        Wrong{"class A { [key] real32 X; };", "a.mof:1:24: key X is of type real32"},
        Wrong{"class A { B ref X; };", "a.mof:1:11: class B of the reference X is not defined"},
        Wrong{"[Q, q] class A {};", "a.mof:1:5: qualifier q is stated twice"},
        Wrong{"[Q({1, \"a\"})] class A {};", "a.mof:1:2: qualifier Q has no usable value"},
        Wrong{"[Q(18446744073709551615)] class A {};",
              "a.mof:1:2: qualifier Q has no usable value"}));

INSTANTIATE_TEST_SUITE_P(
    Overrides, MofErrors,
    testing::Values(
        Wrong{"class A { string X; }; class B : A { string X; };",
              "a.mof:1:45: property X of A is redeclared without Override"},
        Wrong{"class A {}; class B : A { [Override(\"X\")] string X; };",
              "a.mof:1:50: property X overrides nothing"},
        Wrong{"class A { uint16 X[]; }; class B : A { [Override(\"X\")] uint16 X; };",
              "a.mof:1:63: property X changes its type from uint16[] to uint16"},
        Wrong{"class A { string X; }; class B : A { [Override(\"X\")] A ref X; };",
              "a.mof:1:60: property X changes its type from string to ref"},
        Wrong{"class A { [key] string X; }; class B : A { [key] string Y; };",
              "a.mof:1:57: property Y adds to inherited keys"},
        Wrong{"class A { [key] string X; string Y; };\n"
              "class B : A { [key, Override(\"Y\")] string Y; };",
              "a.mof:2:43: property Y adds to inherited keys"},
        Wrong{"class A { [key] string X; };\nclass B : A { [key(false), Override(\"X\")] string X; "
              "};",
              "a.mof:2:50: property X ceases to be a key"},
        Wrong{"class C {}; class A { C ref X; };\nclass B : A { [Override(\"X\")] A ref X; };",
              "a.mof:2:31: class A of the reference X is no C"}));

INSTANTIATE_TEST_SUITE_P(
    Values, MofErrors,
    testing::Values(
        Wrong{"class A { uint8 X = 256; };", "a.mof:1:21: property X takes a value of type uint8"},
        Wrong{"class A { uint16 X = -1; };", "a.mof:1:22: property X takes a value of type uint16"},
        Wrong{"class A { sint8 X = -129; };", "a.mof:1:21: property X takes a value of type sint8"},
        Wrong{"class A { string X = 5; };", "a.mof:1:22: property X takes a value of type string"},
        Wrong{"class A { uint16 X = \"5\"; };",
              "a.mof:1:22: property X takes a value of type uint16"},
        Wrong{"class A { boolean X = 1; };",
              "a.mof:1:23: property X takes a value of type boolean"},
        Wrong{"class A { uint16 X[] = 5; };",
              "a.mof:1:24: property X takes a value of type uint16[]"},
        Wrong{"class A { uint16 X[] = {5, null}; };",
              "a.mof:1:24: property X takes a value of type uint16[]"},
        Wrong{"class A { uint16 X = {5}; };",
              "a.mof:1:22: property X takes a value of type uint16"},
        Wrong{"class A { uint16 X = 1.5; };",
              "a.mof:1:22: property X takes a value of type uint16"},
        Wrong{"class A { datetime X = \"2026-01-02\"; };",
              "a.mof:1:24: property X takes a value of type datetime"}));

INSTANTIATE_TEST_SUITE_P(
    Instances, MofErrors,
    testing::Values(
        Wrong{"instance of A {};", "a.mof:1:13: class A is not defined"},
        Wrong{"[Abstract] class A {}; instance of A {};", "a.mof:1:36: class A is abstract"},
        Wrong{"class A {}; instance of A { X = 1; };", "a.mof:1:29: class A has no property X"},
        Wrong{"class A { string X; }; instance of A { X = \"1\"; x = \"2\"; };",
              "a.mof:1:49: property x has a value already"},
        Wrong{"class A { [key] string X; }; instance of A {};", "a.mof:1:42: key X has no value"},
        Wrong{"instance of __InstanceProviderRegistration { provider = $P; };",
              "a.mof:1:57: alias $P is not defined"},
        Wrong{"instance of __Namespace { Name = $P; };",
              "a.mof:1:34: property Name takes a value of type string"},
        Wrong{"instance of __Win32Provider as $P { Name = \"a\"; };\n"
              "instance of __Win32Provider as $P { Name = \"b\"; };",
              "a.mof:2:13: alias $P is defined already"}));

INSTANTIATE_TEST_SUITE_P(
    Pragmas, MofErrors,
    testing::Values(Wrong{"#pragma magic(\"x\")", "a.mof:1:9: unknown pragma magic"},
                    Wrong{"#pragma namespace", "a.mof:1:9: pragma namespace needs an argument"},
                    Wrong{"#pragma deleteclass(\"A\", fail)", "a.mof:1:9: nothing to delete: A"},
                    Wrong{"#pragma deleteclass(\"__Event\", fail)",
                          "a.mof:1:9: nothing to delete: __Event"},
                    Wrong{"#pragma deleteinstance(\"A=@\")", "a.mof:1:9: nothing to delete: A=@"}));

TEST(ReadMof, LeavesEverythingAsItWasAfterAnError) {
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

TEST(ReadMof, NamesTheFileThatIsWrongAmongSeveral) {
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

TEST(ReadMof, ForgetsAliasesAtTheEndOfTheFile) {
    Namespaces namespaces;
    const std::array files{
        MofSource{"a.mof", "instance of __Win32Provider as $P { Name = \"a\"; };"},
        MofSource{"b.mof", "instance of __EventProviderRegistration { provider = $P; };"}};
    EXPECT_THROW(ReadMof(files, namespaces), MofError);
}

TEST(ReadMofFiles, NamesAFileThatCannotBeRead) {
    Namespaces namespaces;
    const std::array files{std::string("no/such/file.mof")};
    try {
        ReadMofFiles(files, namespaces);
        FAIL() << "read";
    } catch (const MofError& error) {
        EXPECT_STREQ(error.what(), "no/such/file.mof:1:1: cannot be read");
    }
}

}  // namespace
}  // namespace qv::service
