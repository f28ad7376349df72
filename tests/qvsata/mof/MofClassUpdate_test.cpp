// Definitions of classes and instances that the namespace already has.

#include <gmock/gmock.h>

#include "tests/qvsata/mof/ErrorOf.h"

namespace qv::test {
namespace {

using namespace service;

/// Returns the message of a file that is read after another one.
std::string ErrorAfter(std::string_view first, std::string_view second) {
    Namespaces namespaces;
    ReadMof(first, "first.mof", namespaces);
    return ErrorOf(second, namespaces);
}

const char* const createOnly = "#pragma classflags(\"createonly\")\n";
const char* const updateOnly = "#pragma classflags(\"updateonly\")\n";
const char* const safeUpdate = "#pragma classflags(\"safeupdate\")\n";

TEST(MofClassUpdate, MayStateAClassOnceMore) {
    EXPECT_EQ(ErrorAfter("class A { [key] string X; }; class B : A {};"
                         "instance of B { X = \"1\"; };",
                         "[Description(\"d\")] class A { [key, Description(\"k\")] string X; };"),
              "no error");
}

TEST(MofClassUpdate, MayChangeAClassThatNothingUses) {
    Namespaces namespaces;
    ReadMof("class A { string X; };", "first.mof", namespaces);
    ReadMof("class A { string X; string Y; };", "a.mof", namespaces);
    EXPECT_EQ(namespaces.Of("root\\default").Properties("A").size(), 2U);
}

TEST(MofClassUpdate, DoesNotChangeAClassWithSubclasses) {
    EXPECT_EQ(ErrorAfter("class A { string X; }; class B : A {};", "class A { uint16 X; };"),
              "a.mof:1:7: class A is changed and has the subclass B "
              "(WBEM_E_CLASS_HAS_CHILDREN 0x80041025)");
}

TEST(MofClassUpdate, DoesNotChangeAClassWithInstances) {
    const char* const used = "class A { [key] string X; }; instance of A { X = \"1\"; };";
    const std::string change = "class A { [key] string X; string Y; };";
    EXPECT_EQ(ErrorAfter(used, change),
              "a.mof:1:7: class A is changed and has instances "
              "(WBEM_E_CLASS_HAS_INSTANCES 0x80041026)");
    EXPECT_EQ(ErrorAfter(used, safeUpdate + change),
              "a.mof:2:7: class A is changed and has instances "
              "(WBEM_E_CLASS_HAS_INSTANCES 0x80041026)");
}

TEST(MofClassUpdate, DoesNotDeriveAClassFromItsSubclass) {
    EXPECT_EQ(ErrorAfter("class A {}; class B : A {};", "class A : B {};"),
              "a.mof:1:11: class A derives from itself (WBEM_E_CIRCULAR_REFERENCE 0x80041047)");
}

TEST(MofClassUpdate, SafeUpdateChangesAClassWhoseSubclassesStillFit) {
    Namespaces namespaces;
    ReadMof("class A { string X; }; class B : A {};", "first.mof", namespaces);
    ReadMof(std::string(safeUpdate) + "class A { string X; string Y; };", "a.mof", namespaces);
    EXPECT_EQ(namespaces.Of("root\\default").Properties("B").size(), 2U);
}

TEST(MofClassUpdate, SafeUpdateDoesNotContradictASubclass) {
    EXPECT_EQ(ErrorAfter("class A {}; class B : A { uint16 X; };",
                         std::string(safeUpdate) + "class A { string X; };"),
              "a.mof:2:7: class A is changed and contradicts its subclass: property X of A is "
              "redeclared without Override (WBEM_E_CLASS_HAS_CHILDREN 0x80041025)");
    EXPECT_EQ(
        ErrorAfter("[Abstract] class A {}; [Abstract] class B : A {};",
                   std::string(safeUpdate) + "class A {};"),
        "a.mof:2:7: class A is changed and contradicts its subclass: class B is abstract below "
        "the concrete class A (WBEM_E_CLASS_HAS_CHILDREN 0x80041025)");
}

TEST(MofClassUpdate, CreateOnlyLeavesAClassAsItIs) {
    Namespaces namespaces;
    ReadMof("class A { string X; };", "first.mof", namespaces);
    EXPECT_EQ(ErrorOf(std::string(createOnly) + "class A {};", namespaces),
              "a.mof:2:7: class A is in the namespace already "
              "(WBEM_E_ALREADY_EXISTS 0x80041019)");
    EXPECT_EQ(namespaces.Of("root\\default").Properties("A").size(), 1U);
}

TEST(MofClassUpdate, CreateOnlyNamesWhatTheNamespaceLacks) {
    EXPECT_EQ(
        ErrorAfter("class A { string X; }; class B : A {};",
                   std::string(createOnly) + "class New {};\nclass A { string X; string Y; };\n"
                                             "class C {};\n[Abstract] class B : A { string Z; };"),
        "a.mof:3:7: class A is in the namespace already, which lacks A.Y, C, "
        "Abstract of B, B.Z "
        "(WBEM_E_ALREADY_EXISTS 0x80041019)");
}

TEST(MofClassUpdate, UpdateOnlyCreatesNoClass) {
    EXPECT_EQ(ErrorOf(std::string(updateOnly) + "class A {};"),
              "a.mof:2:7: class A is not in the namespace");
}

TEST(MofClassUpdate, InstanceFlagsKeepOrDemandWhatIsThere) {
    const char* const present = "class A { [key] string X; }; instance of A { X = \"1\"; };";
    EXPECT_EQ(ErrorAfter(present,
                         "#pragma instanceflags(\"createonly\")\n"
                         "instance of A { X = \"1\"; };"),
              "a.mof:2:13: A.X=\"1\" is in the namespace already "
              "(WBEM_E_ALREADY_EXISTS 0x80041019)");
    EXPECT_EQ(ErrorAfter(present,
                         "#pragma instanceflags(\"updateonly\")\n"
                         "instance of A { X = \"2\"; };"),
              "a.mof:2:13: A.X=\"2\" is not in the namespace");
}

}  // namespace
}  // namespace qv::test
