#include "qvsata/cim/ObjectPath.h"
#include "qvsata/cim/ObjectPathParser.h"

#include <gmock/gmock.h>

namespace qv::test {
namespace {

using namespace service;
using testing::IsEmpty;
using testing::SizeIs;

ObjectPath Parsed(std::string_view text) {
    PathError error;
    auto path = ParseObjectPath(text, &error);
    EXPECT_TRUE(path) << text << ": " << error.reason;
    return path.value_or(ObjectPath{});
}

// Returns "reason at position"; "" for a valid path.
std::string PathRefusal(std::string_view text) {
    PathError error;
    return ParseObjectPath(text, &error) ? ""
                                         : error.reason + " at " + std::to_string(error.position);
}

bool Same(std::string_view left, std::string_view right) {
    const bool same = NamesSameObject(Parsed(left), Parsed(right));
    EXPECT_EQ(same, NamesSameObject(Parsed(right), Parsed(left)));
    return same;
}

TEST(ObjectPath, ParseObjectPathTakesAFullPathApart) {
    const ObjectPath path = Parsed(R"(\\SRV\root\cimv2:Win32_DiskDrive.DeviceID="\\\\.\\X")");
    EXPECT_EQ(path.server, "SRV");
    EXPECT_EQ(path.nameSpace, R"(root\cimv2)");
    EXPECT_EQ(path.className, "Win32_DiskDrive");
    ASSERT_THAT(path.keys, SizeIs(1));
    EXPECT_EQ(path.keys[0].name, "DeviceID");
    EXPECT_EQ(path.keys[0].value, R"(\\.\X)");
    EXPECT_TRUE(path.keys[0].quoted);
    EXPECT_FALSE(path.singleton);
}

TEST(ObjectPath, ParseObjectPathAcceptsSlashesOfEitherKind) {
    const ObjectPath path = Parsed("//./root/cimv2:C.K=1");
    EXPECT_EQ(path.server, ".");
    EXPECT_EQ(path.nameSpace, R"(root\cimv2)");
    EXPECT_EQ(Parsed(R"(\\SRV/root\cimv2:C)").nameSpace, R"(root\cimv2)");
    EXPECT_EQ(Parsed("/root/cimv2:C").nameSpace, R"(root\cimv2)");
}

TEST(ObjectPath, ParseObjectPathAcceptsANamespaceWithoutAServer) {
    const ObjectPath path = Parsed(R"(root\cimv2:C.K="v")");
    EXPECT_EQ(path.server, "");
    EXPECT_EQ(path.nameSpace, R"(root\cimv2)");
}

TEST(ObjectPath, ParseObjectPathAcceptsAClassAlone) {
    const ObjectPath path = Parsed("Win32_DiskDrive");
    EXPECT_EQ(path.className, "Win32_DiskDrive");
    EXPECT_THAT(path.keys, IsEmpty());
}

TEST(ObjectPath, ParseObjectPathKeepsTheKeysInTheirOrder) {
    const ObjectPath path = Parsed(R"(C.B="1",A='2',D=-3,E=TRUE)");
    ASSERT_THAT(path.keys, SizeIs(4));
    EXPECT_EQ(path.keys[0].name, "B");
    EXPECT_EQ(path.keys[1].name, "A");
    EXPECT_EQ(path.keys[1].value, "2");
    EXPECT_EQ(path.keys[2].value, "-3");
    EXPECT_FALSE(path.keys[2].quoted);
    EXPECT_EQ(path.keys[3].value, "TRUE");
}

TEST(ObjectPath, ParseObjectPathAcceptsASingleKeyWithoutItsName) {
    const ObjectPath path = Parsed(R"(C="v")");
    ASSERT_THAT(path.keys, SizeIs(1));
    EXPECT_EQ(path.keys[0].name, "");
    EXPECT_EQ(path.keys[0].value, "v");
}

TEST(ObjectPath, ParseObjectPathAcceptsASingleton) {
    EXPECT_TRUE(Parsed("C=@").singleton);
}

TEST(ObjectPath, ParseObjectPathResolvesEscapesInBothKindsOfQuotes) {
    EXPECT_EQ(Parsed(R"(C="a\\b\"c")").keys[0].value, R"(a\b"c)");
    EXPECT_EQ(Parsed(R"(C='a\'b"c')").keys[0].value, R"(a'b"c)");
}

TEST(ObjectPath, ParseObjectPathLeavesABackslashBeforeAnythingElseAlone) {
    EXPECT_EQ(Parsed(R"(C="IDE\DISK")").keys[0].value, R"(IDE\DISK)");
}

TEST(ObjectPath, ParseObjectPathAcceptsEverythingInsideQuotes) {
    EXPECT_EQ(Parsed(R"(C.K="Disk #0, Partition: #1 = {x}",L="")").keys[0].value,
              "Disk #0, Partition: #1 = {x}");
}

TEST(ObjectPath, ParseObjectPathAcceptsAReferenceAsValue) {
    const ObjectPath path = Parsed(
        R"(A.Dependent="\\\\S\\root\\cimv2:P.K=\"Disk #0, P\"",Antecedent="D.K=\"\\\\\\\\.\\\\X\"")");
    ASSERT_THAT(path.keys, SizeIs(2));
    EXPECT_EQ(path.keys[0].value, R"(\\S\root\cimv2:P.K="Disk #0, P")");
    EXPECT_EQ(Parsed(path.keys[1].value).keys[0].value, R"(\\.\X)");
}

TEST(ObjectPath, ParseObjectPathRefusesWhatIsNoPathAndSaysWhere) {
    EXPECT_EQ(PathRefusal(""), "expected a class name at 0");
    EXPECT_EQ(PathRefusal("1C"), "expected a class name at 0");
    EXPECT_EQ(PathRefusal("root:"), "expected a class name at 5");
    EXPECT_EQ(PathRefusal("C."), "expected a key name at 2");
    EXPECT_EQ(PathRefusal("C.K"), "expected = after the key name at 3");
    EXPECT_EQ(PathRefusal("C.K="), "expected a quoted text, a number, TRUE or FALSE at 4");
    EXPECT_EQ(PathRefusal("C.K=v"), "expected a quoted text, a number, TRUE or FALSE at 4");
    EXPECT_EQ(PathRefusal("C.K=1.5"), "expected a quoted text, a number, TRUE or FALSE at 4");
    EXPECT_EQ(PathRefusal(R"(C.K="v)"), "the quote is not closed at 4");
    EXPECT_EQ(PathRefusal(R"(C.K="v\")"), "the quote is not closed at 4");
    EXPECT_EQ(PathRefusal(R"(C.K="v"x)"), "expected , or the end after the value at 7");
    EXPECT_EQ(PathRefusal(R"(C.K="v",)"), "expected a key name at 8");
    EXPECT_EQ(PathRefusal(R"(C.K="v",k="w")"), "a key is given twice at 10");
    EXPECT_EQ(PathRefusal(R"(C="v",K="w")"), "unexpected character after the value at 5");
    EXPECT_EQ(PathRefusal("C=@x"), "unexpected character after the value at 3");
    EXPECT_EQ(PathRefusal("C*"), "unexpected character after the class name at 1");
}

TEST(ObjectPath, ParseObjectPathRefusesBlanksOutsideQuotes) {
    EXPECT_EQ(PathRefusal(R"(C.K ="v")"), "expected = after the key name at 3");
    EXPECT_EQ(PathRefusal(R"(C.K= "v")"), "expected a quoted text, a number, TRUE or FALSE at 4");
    EXPECT_EQ(PathRefusal(R"(C.K="v" ,L="w")"), "expected , or the end after the value at 7");
    EXPECT_EQ(PathRefusal(R"(C.K="v", L="w")"), "expected a key name at 8");
    EXPECT_EQ(PathRefusal(R"(C .K="v")"), "unexpected character after the class name at 1");
    EXPECT_EQ(PathRefusal(R"(root\a b:C)"), "a blank in server or namespace at 6");
}

TEST(ObjectPath, ParseObjectPathRefusesAMisspeltPrefix) {
    EXPECT_EQ(PathRefusal(R"(/\.\root:C)"), "a server is introduced by two equal slashes at 0");
    EXPECT_EQ(PathRefusal(R"(\\\root:C)"), "a server is introduced by two equal slashes at 0");
    EXPECT_EQ(PathRefusal(R"(\\SRV:C)"), "no namespace after the server at 5");
    EXPECT_EQ(PathRefusal(R"(\\SRV\root\cimv2)"), "no class after the namespace at 0");
    EXPECT_EQ(PathRefusal(R"(root\\cimv2:C)"), "an empty name in server or namespace at 5");
    EXPECT_EQ(PathRefusal(":C"), "an empty name in server or namespace at 0");
}

TEST(ObjectPath, ParseInstancePathTakesPathsOfInstancesOnly) {
    EXPECT_EQ(ParseInstancePath(R"(A.Name="x")").value().keys.at(0).value, "x");
    EXPECT_TRUE(ParseInstancePath("A=@").value().singleton);
    EXPECT_FALSE(ParseInstancePath("A").has_value());
    EXPECT_FALSE(ParseInstancePath("a = text").has_value());
    EXPECT_FALSE(ParseInstancePath("").has_value());
}

TEST(ObjectPath, FormatObjectPathEscapesBackslashesAndDoubleQuotes) {
    const ObjectPath path{"", "", "C", {{"K", R"(\\.\a"b'c)", true}, {"N", "3", false}}, false};
    EXPECT_EQ(FormatObjectPath(path), R"(C.K="\\\\.\\a\"b'c",N=3)");
}

TEST(ObjectPath, FormatObjectPathWritesAsMuchAsIsAskedFor) {
    const ObjectPath path = Parsed("//SRV/root/cimv2:C.K='v'");
    EXPECT_EQ(FormatObjectPath(path), R"(C.K="v")");
    EXPECT_EQ(FormatObjectPath(path, PathForm::withNamespace), R"(root\cimv2:C.K="v")");
    EXPECT_EQ(FormatObjectPath(path, PathForm::full), R"(\\SRV\root\cimv2:C.K="v")");
}

TEST(ObjectPath, FormatObjectPathWritesADotForAMissingServerAndNothingForAMissingNamespace) {
    EXPECT_EQ(FormatObjectPath(Parsed("root/cimv2:C"), PathForm::full), R"(\\.\root\cimv2:C)");
    EXPECT_EQ(FormatObjectPath(Parsed("C"), PathForm::full), "C");
}

TEST(ObjectPath, FormatObjectPathWritesSingletonsAndKeysWithoutName) {
    EXPECT_EQ(FormatObjectPath(Parsed("C=@")), "C=@");
    EXPECT_EQ(FormatObjectPath(Parsed("C='v'")), R"(C="v")");
}

TEST(ObjectPath, FormatObjectPathListsKeysInTheOrderAskedFor) {
    const ObjectPath path = Parsed("C.b=1,C=2,A=3");
    EXPECT_EQ(FormatObjectPath(path), "C.b=1,C=2,A=3");
    EXPECT_EQ(FormatObjectPath(path, PathForm::relative, KeyOrder::alphabetical), "C.A=3,b=1,C=2");
}

TEST(ObjectPath, NamesSameObjectIgnoresCaseKeyOrderAndServers) {
    EXPECT_TRUE(Same(R"(C.A="x",B="y")", R"(c.b="Y",a='X')"));
    EXPECT_TRUE(Same(R"(\\SRV\root\cimv2:C.A="x")", R"(//./ROOT/CIMV2:C.A="x")"));
    EXPECT_TRUE(Same(R"(\\SRV\root\cimv2:C.A="x")", R"(C.A="x")"));
}

TEST(ObjectPath, NamesSameObjectTellsClassesKeysValuesAndNamespacesApart) {
    EXPECT_FALSE(Same(R"(C.A="x")", R"(D.A="x")"));
    EXPECT_FALSE(Same(R"(C.A="x")", R"(C.B="x")"));
    EXPECT_FALSE(Same(R"(C.A="x")", R"(C.A="y")"));
    EXPECT_FALSE(Same(R"(C.A="x")", R"(C.A="x",B="y")"));
    EXPECT_FALSE(Same(R"(C.A="x",B="y")", R"(C.A="y",B="x")"));
    EXPECT_FALSE(Same(R"(root\wmi:C.A="x")", R"(root\cimv2:C.A="x")"));
    EXPECT_FALSE(Same("C=@", "C"));
}

TEST(ObjectPath, NamesSameObjectTakesAKeyWithoutNameForTheOnlyKey) {
    EXPECT_TRUE(Same(R"(C="x")", R"(C.A="x")"));
    EXPECT_FALSE(Same(R"(C="x")", R"(C.A="y")"));
    EXPECT_FALSE(Same(R"(C="x")", R"(C.A="x",B="y")"));
}

TEST(ObjectPath, NamesSameObjectComparesReferencesAsPaths) {
    EXPECT_TRUE(
        Same(R"(A.R="\\\\S\\root\\cimv2:C.K=\"v\",L=\"w\"")", R"(A.R="root/CIMV2:c.l='W',k='V'")"));
    EXPECT_FALSE(Same(R"(A.R="C.K=\"v\"")", R"(A.R="C.K=\"w\"")"));
}

TEST(ObjectPath, NormalNamespaceDropsServerAndSlashes) {
    EXPECT_EQ(NormalNamespace(R"(\\.\root\CIMv2)"), R"(root\CIMv2)");
    EXPECT_EQ(NormalNamespace("//SRV/root/wmi"), R"(root\wmi)");
    EXPECT_EQ(NormalNamespace("/root"), "root");
    EXPECT_EQ(NormalNamespace(R"(\\SRV)"), "");
}

TEST(ObjectPath, IsSameNamespaceIgnoresCaseSlashesAndServer) {
    EXPECT_TRUE(IsSameNamespace(R"(root\CIMv2)", "//./ROOT/cimv2"));
    EXPECT_FALSE(IsSameNamespace(R"(root\CIMv2)", R"(root\wmi)"));
}

}  // namespace
}  // namespace qv::test
