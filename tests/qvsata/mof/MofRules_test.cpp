// The rules of docs/MOF-RULES.md, each with a text that breaks it and, for borderline rules, one
// that keeps it.

#include <gmock/gmock.h>

#include "tests/qvsata/mof/ErrorOf.h"

namespace qv::test {
namespace {

using namespace service;

struct Case {
    const char* text;
    std::string message;
};

class MofRulesTest : public testing::TestWithParam<Case> {};

TEST_P(MofRulesTest, RefuseWhatTheServiceRefuses) {
    EXPECT_EQ(ErrorOf(GetParam().text), GetParam().message);
}

const char* const fine = "no error";

INSTANTIATE_TEST_SUITE_P(
    Names, MofRulesTest,
    testing::Values(
        Case{"class _A {};", "a.mof:1:7: class _A begins or ends with an underscore"},
        Case{"class A_ {};", "a.mof:1:7: class A_ begins or ends with an underscore"},
        Case{"class __A {};", "a.mof:1:7: class __A begins or ends with an underscore"},
        Case{"class A_B {};", fine},
        Case{"class A { string _X; };",
             "a.mof:1:18: property _X begins or ends with an underscore"},
        Case{"class A { string X_; };",
             "a.mof:1:18: property X_ begins or ends with an underscore"},
        Case{"class A { string Class; };", "a.mof:1:18: property Class is named by a keyword"},
        Case{"[_Q] class A {};", "a.mof:1:2: qualifier _Q begins or ends with an underscore"},
        Case{"[Q_(1)] class A {};", "a.mof:1:2: qualifier Q_ begins or ends with an underscore"}));

INSTANTIATE_TEST_SUITE_P(
    Abstract, MofRulesTest,
    testing::Values(Case{"class A {};\n[Description(\"d\"), Abstract] class B : A {};",
                         "a.mof:2:20: class B is abstract below the concrete class A "
                         "(WBEM_E_CANNOT_BE_ABSTRACT 0x80041065)"},
                    Case{"[Abstract] class A {}; [Abstract] class B : A {}; class C : B {};", fine},
                    Case{"[Abstract] class A : __ExtrinsicEvent {};",
                         "a.mof:1:2: class A is abstract below the event class __ExtrinsicEvent"},
                    Case{"class A : __ExtrinsicEvent {}; [Abstract] class B : A {};",
                         "a.mof:1:33: class B is abstract below the concrete class A "
                         "(WBEM_E_CANNOT_BE_ABSTRACT 0x80041065)"},
                    Case{"class A : __ExtrinsicEvent {}; class B : A {};", fine},
                    Case{"[Terminal, Abstract] class A {};",
                         "a.mof:1:2: class A is Terminal and Abstract"},
                    Case{"[Terminal] class A {}; class B : A {};",
                         "a.mof:1:30: class B derives from the terminal class A"}));

INSTANTIATE_TEST_SUITE_P(
    Keys, MofRulesTest,
    testing::Values(
        Case{"[Key] class A {};",
             "a.mof:1:2: qualifier Key on a class (WBEM_E_INVALID_QUALIFIER 0x80041042)"},
        Case{"class A { [Key(FALSE)] string X; };",
             "a.mof:1:31: qualifier Key of the property X takes only TRUE"},
        Case{"class A { [key] object X; };",
             "a.mof:1:24: key X is of type object (WBEM_E_CANNOT_BE_KEY 0x8004101F)"},
        Case{"class A { [key] real64 X; };",
             "a.mof:1:24: key X is of type real64 (WBEM_E_CANNOT_BE_KEY 0x8004101F)"},
        Case{"[Abstract] class A { [key] string X; }; class B : A { [key] string Y; };",
             "a.mof:1:68: property Y adds to inherited keys"},
        Case{"[Abstract] class A { string X; }; class B : A { [key] string Y; };", fine}));

INSTANTIATE_TEST_SUITE_P(
    Dynamic, MofRulesTest,
    testing::Values(
        Case{"[dynamic] class A {};", "a.mof:1:17: class A is dynamic and has no provider"},
        Case{"[provider(\"P\")] class A {};",
             "a.mof:1:23: class A has a provider and is not dynamic"},
        Case{"[provider(\"P\")] class A { uint32 Do(); };", fine},
        Case{"[Abstract, provider(\"P\"): ToSubclass] class A {}; [dynamic] class B : A {};", fine},
        Case{"[dynamic(FALSE), provider(\"P\")] class A {};",
             "a.mof:1:2: qualifier dynamic takes only TRUE"},
        Case{"[dynamic, provider(\"P\")] class A {}; class B : A {};",
             "a.mof:1:44: class B is static below the dynamic class A"},
        Case{"[dynamic: ToSubclass, provider(\"P\"): ToSubclass] class A {}; class B : A {};",
             fine},
        Case{"class A { [key] string X; }; [dynamic, provider(\"P\")] class B : A {};",
             "a.mof:1:61: class B is dynamic below the concrete static class A, whose instances it "
             "cannot add to"},
        Case{"[Abstract] class A { [key] string X; }; [dynamic, provider(\"P\")] class B : A {};",
             fine}));

INSTANTIATE_TEST_SUITE_P(
    Singletons, MofRulesTest,
    testing::Values(
        Case{"[singleton] class A { [key] string X; };",
             "a.mof:1:2: class A is a singleton and has keys "
             "(WBEM_E_CANNOT_BE_SINGLETON 0x8004102C)"},
        Case{"[Abstract] class A { [key] string X; }; [singleton] class B : A {};",
             "a.mof:1:42: class B is a singleton and has keys "
             "(WBEM_E_CANNOT_BE_SINGLETON 0x8004102C)"},
        Case{"class A {}; [singleton] class B : A {};",
             "a.mof:1:14: class B is a singleton below the class A, which is none "
             "(WBEM_E_CANNOT_BE_SINGLETON 0x8004102C)"},
        Case{"[singleton(false)] class A {};", "a.mof:1:2: qualifier singleton takes only TRUE"},
        Case{"[singleton] class A { string X; }; instance of A { X = \"x\"; };", fine}));

INSTANTIATE_TEST_SUITE_P(
    Associations, MofRulesTest,
    testing::Values(Case{"[Association] class A { [key] A ref X; };",
                         "a.mof:1:21: association A has fewer than two references"},
                    Case{"[Association, Indication] class A {};",
                         "a.mof:1:33: class A is an association and an indication"},
                    Case{"[Association, Abstract] class A { [key] A ref X; };", fine},
                    Case{"class A { A ref X; };", fine}));

INSTANTIATE_TEST_SUITE_P(
    Inheritance, MofRulesTest,
    testing::Values(
        Case{"class A : a {};",
             "a.mof:1:11: class A derives from itself (WBEM_E_CIRCULAR_REFERENCE 0x80041047)"},
        Case{"class A { string X; string Y; }; class B : A { [Override(\"Y\")] string X; };",
             "a.mof:1:71: property X overrides one of another name"},
        Case{"class A { string X; }; class B : A { [Override(\"A.x\")] string X; };", fine}));

INSTANTIATE_TEST_SUITE_P(
    Flavors, MofRulesTest,
    testing::Values(
        Case{"[Q: EnableOverride DisableOverride ToSubclass] class A {};",
             "a.mof:1:2: qualifier Q is both EnableOverride and DisableOverride "
             "(WBEMMOF_E_INCOMPATIBLE_FLAVOR_TYPES 0x80044023)"},
        Case{"[Q: Restricted ToInstance] class A {};",
             "a.mof:1:2: qualifier Q is Restricted and handed on "
             "(WBEMMOF_E_INCOMPATIBLE_FLAVOR_TYPES2 0x80044025)"},
        Case{"[Q: Restricted ToSubclass] class A {};",
             "a.mof:1:2: qualifier Q is Restricted and handed on "
             "(WBEMMOF_E_INCOMPATIBLE_FLAVOR_TYPES2 0x80044025)"},
        Case{"[Q: ToSubclass] instance of __Namespace { Name = \"a\"; };",
             "a.mof:1:2: qualifier Q of an instance is ToSubclass"},
        Case{"[Q(1): ToSubclass DisableOverride] class A {}; [Q(2)] class B : A {};",
             "a.mof:1:49: qualifier Q overrides one that is DisableOverride "
             "(WBEM_E_UPDATE_OVERRIDE_NOT_ALLOWED 0x80041053)"},
        Case{"[Q(1): ToSubclass DisableOverride] class A {}; [Q(1)] class B : A {};", fine},
        Case{"[Q(1): ToSubclass] class A {}; [Q(2)] class B : A {};", fine},
        Case{"class A { [Q(1): ToSubclass DisableOverride] string X; };\n"
             "class B : A { [Override(\"X\"), Q(2)] string X; };",
             "a.mof:2:44: qualifier Q of the property X overrides one that is DisableOverride "
             "(WBEM_E_UPDATE_OVERRIDE_NOT_ALLOWED 0x80041053)"}));

INSTANTIATE_TEST_SUITE_P(
    Qualifiers, MofRulesTest,
    testing::Values(Case{"class A { [CIMType(\"string\")] string X; };",
                         "a.mof:1:12: qualifier CIMType is the compiler's to state "
                         "(WBEMMOF_E_CIMTYPE_QUALIFIER 0x8004401A)"},
                    Case{"[Q(null)] class A {};",
                         "a.mof:1:2: qualifier Q has no usable value "
                         "(WBEM_E_INVALID_QUALIFIER_TYPE 0x80041029)"}));

INSTANTIATE_TEST_SUITE_P(
    Pragmas, MofRulesTest,
    testing::Values(Case{"// a\n#pragma autorecover",
                         "a.mof:2:9: pragma autorecover belongs on the first line of the file"},
                    Case{"#pragma autorecover\nclass A {};", fine},
                    Case{"#pragma namespace(\"\\\\\\\\other\\\\root\")",
                         "a.mof:1:9: pragma namespace names another server "
                         "(WBEMMOF_E_INVALID_NAMESPACE_SPECIFICATION 0x8004401C)"},
                    Case{"#pragma namespace(\"\\\\\\\\.\\\\root\")", fine},
                    Case{"#pragma namespace(\"\")",
                         "a.mof:1:9: pragma namespace needs the path of a namespace "
                         "(WBEMMOF_E_INVALID_NAMESPACE_SYNTAX 0x80044013)"},
                    Case{"#pragma deleteclass(\"A\")",
                         "a.mof:1:9: pragma deleteclass needs a name and FAIL or NOFAIL "
                         "(WBEMMOF_E_INVALID_DELETECLASS_SYNTAX 0x80044031)"},
                    Case{"#pragma deleteinstance(\"A=@\", maybe)",
                         "a.mof:1:9: pragma deleteinstance needs a name and FAIL or NOFAIL "
                         "(WBEMMOF_E_INVALID_DELETEINSTANCE_SYNTAX 0x8004402C)"},
                    Case{"#pragma classflags(\"sometimes\")",
                         "a.mof:1:9: pragma classflags has an unknown flag or none "
                         "(WBEMMOF_E_INVALID_FLAGS_SYNTAX 0x80044028)"},
                    Case{"#pragma instanceflags(\"safeupdate\")",
                         "a.mof:1:9: pragma instanceflags has an unknown flag or none "
                         "(WBEMMOF_E_INVALID_FLAGS_SYNTAX 0x80044028)"}));

INSTANTIATE_TEST_SUITE_P(
    Instances, MofRulesTest,
    testing::Values(
        Case{"class A { string X; }; instance of A { X = \"x\"; };",
             "a.mof:1:36: class A has no key (WBEM_E_NO_KEY 0x80041089)"},
        Case{"class A { [key] string X; }; instance of A { X = NULL; };",
             "a.mof:1:42: key X has no value (WBEM_E_ILLEGAL_NULL 0x80041028)"},
        Case{"instance of __Win32Provider { Name = \"P\"; HostingModel = \"MyHost\"; };",
             "a.mof:1:13: unknown hosting model MyHost "
             "(WBEM_E_INVALID_PROVIDER_REGISTRATION 0x80041012)"},
        Case{"instance of __Win32Provider { Name = \"P\"; HostingModel = \"My\\r\\nHost\x7f\"; };",
             "a.mof:1:13: unknown hosting model My\\x0d\\x0aHost\\x7f "
             "(WBEM_E_INVALID_PROVIDER_REGISTRATION 0x80041012)"},
        Case{"#pragma deleteclass(\"A\\nB\", FAIL)", "a.mof:1:9: nothing to delete: A\\x0aB"},
        Case{
            "instance of __Win32Provider { Name = \"P\"; HostingModel = \"LocalServiceHost:a\"; };",
            fine},
        Case{"instance of __Win32Provider { Name = \"P\"; ImpersonationLevel = 1; };",
             "a.mof:1:13: a provider that impersonates is initialised once for each user"}));

std::string Repeated(const std::string& text, int times) {
    std::string all;
    for (int number = 0; number < times; ++number) {
        all += text + std::to_string(number) + ';';
    }
    return all;
}

TEST(MofRules, NamesHaveAtMost255Characters) {
    const std::string name(256, 'a');
    EXPECT_EQ(ErrorOf("class " + name + " {};"),
              "a.mof:1:7: class aaaaaaaaaaaaaaaaaaaa... has a name of more than 255 characters "
              "(WBEM_E_CLASS_NAME_TOO_WIDE 0x80041074)");
    EXPECT_EQ(ErrorOf("class A { string " + name + "; };"),
              "a.mof:1:18: property aaaaaaaaaaaaaaaaaaaa... has a name of more than 255 characters "
              "(WBEM_E_PROPERTY_NAME_TOO_WIDE 0x80041073)");
    EXPECT_EQ(ErrorOf("class " + name.substr(1) + " {};"), fine);
}

TEST(MofRules, ClassesHaveAtMost1024Properties) {
    EXPECT_EQ(ErrorOf("class A {" + Repeated("string X", 1025) + "};"),
              "a.mof:1:7: class A has more than 1024 properties "
              "(WBEM_E_TOO_MANY_PROPERTIES 0x80041051)");
}

TEST(MofRules, ClassesInheritAndDeclareAtMost1024PropertiesInAll) {
    const std::string large = "class A {" + Repeated("string X", 1000) + "};\n";
    EXPECT_EQ(ErrorOf(large + "class B : A {" + Repeated("string Y", 24) + "};"), fine);
    EXPECT_EQ(ErrorOf(large + "class B : A {" + Repeated("string Y", 25) + "};"),
              "a.mof:2:7: class B has more than 1024 properties "
              "(WBEM_E_TOO_MANY_PROPERTIES 0x80041051)");
    EXPECT_EQ(ErrorOf(large + "class B : A {" + Repeated("[Override(\"X0\")] string X", 1) +
                      Repeated("string Y", 24) + "};"),
              fine);
}

/// Returns so many qualifiers, separated by commas.
std::string Qualifiers(const std::string& name, int count, const std::string& flavor) {
    std::string all = name;
    for (int number = 1; number < count; ++number) {
        all += flavor + ", " + name + std::to_string(number);
    }
    return all + flavor;
}

TEST(MofRules, ClassesAndPropertiesHaveAtMost256Qualifiers) {
    EXPECT_EQ(ErrorOf("[" + Qualifiers("Q", 256, "") + "] class A {};"), fine);
    EXPECT_EQ(ErrorOf("[" + Qualifiers("Q", 256, "") + ",\nR] class A {};"),
              "a.mof:2:1: more than 256 qualifiers");
    EXPECT_EQ(ErrorOf("class A { [" + Qualifiers("Q", 256, "") + ",\nR] string P; };"),
              "a.mof:2:1: more than 256 qualifiers");
}

TEST(MofRules, ClassesHandOnAtMost256QualifiersWithTheirAncestors) {
    const std::string top = "[" + Qualifiers("Q", 200, ":ToSubclass") + "] class A {};\n";
    EXPECT_EQ(ErrorOf(top + "[" + Qualifiers("R", 56, ":ToSubclass") + "] class B : A {};"), fine);
    EXPECT_EQ(ErrorOf(top + "[" + Qualifiers("R", 57, ":ToSubclass") + "]\nclass B : A {};"),
              "a.mof:3:7: class B and its ancestors hand on more than 256 qualifiers");
}

TEST(MofRules, InstancesHaveAtMost256Keys) {
    EXPECT_EQ(ErrorOf("class A {" + Repeated("[key] string X", 257) + "};\ninstance of A {};"),
              "a.mof:2:13: class A has more than 256 keys");
}

}  // namespace
}  // namespace qv::test
