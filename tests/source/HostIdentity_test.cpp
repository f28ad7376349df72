#include "source/HostIdentity.h"

#include <gtest/gtest.h>

#include "tests/support/ScriptedHost.h"

namespace qv::test {
namespace {

using platform::NameFormat;

const std::string classQuery = R"(SELECT * FROM meta_class WHERE __CLASS = "QV_WinComputerSystem")";
const std::string classQueryAsked = R"(root\QVQ: )" + classQuery;
const Properties definition{{"__SERVER", "SRV"},
                            {"__PATH", R"(\\SRV\root\QVQ:QV_WinComputerSystem)"}};

class HostIdentityTest : public testing::Test {
protected:
    HostIdentityTest() {
        host.names = {{NameFormat::dnsFullyQualified, {0, L"srv.example.org"}},
                      {NameFormat::dnsHostname, {0, L"srv"}},
                      {NameFormat::netBios, {0, L"SRV"}}};
        host.Answer(classQuery, {definition});
    }

    std::wstring NameOfHost() {
        std::wstring name;
        EXPECT_EQ(GetHostName(host, name), 0U);
        return name;
    }

    // Expects BuildComputerSystemPath to fail with the status and to leave its output unchanged.
    void ExpectNoPath(Status status = Status::failed) {
        std::wstring path = L"before";
        EXPECT_EQ(BuildComputerSystemPath(host, host, path), status);
        EXPECT_EQ(path, L"before");
    }

    ScriptedHost host;
};

TEST_F(HostIdentityTest, ComputerSystemClassIsTheWindowsOne) {
    EXPECT_EQ(GetComputerSystemClassName(), "QV_WinComputerSystem");
}

TEST_F(HostIdentityTest, NameInADomainIsTheFullyQualifiedOne) {
    EXPECT_EQ(NameOfHost(), L"srv.example.org");
}

TEST_F(HostIdentityTest, NameIsTheDnsHostNameWithoutAFullyQualifiedOne) {
    host.names[NameFormat::dnsFullyQualified] = {87, L"unused"};
    EXPECT_EQ(NameOfHost(), L"srv");
}

TEST_F(HostIdentityTest, NameIsTheNetBiosNameWithoutDnsNames) {
    host.names[NameFormat::dnsFullyQualified] = {87, L""};
    host.names[NameFormat::dnsHostname] = {8, L""};
    EXPECT_EQ(NameOfHost(), L"SRV");
}

TEST_F(HostIdentityTest, NameThatTheSystemGivesEmptyIsTaken) {
    host.names[NameFormat::dnsFullyQualified] = {0, L""};
    EXPECT_EQ(NameOfHost(), L"");
}

TEST_F(HostIdentityTest, WithoutANameTheErrorIsThatOfTheLastAttempt) {
    host.names = {{NameFormat::dnsFullyQualified, {5, L""}},
                  {NameFormat::dnsHostname, {6, L""}},
                  {NameFormat::netBios, {8, L""}}};
    std::wstring name = L"before";
    EXPECT_EQ(GetHostName(host, name), 8U);
    EXPECT_EQ(name, L"before");
}

TEST_F(HostIdentityTest, NameIsWide) {
    host.names = {{NameFormat::netBios, {0, L"сервер"}}};
    EXPECT_EQ(NameOfHost(), L"сервер");
}

TEST_F(HostIdentityTest, NameInARecordIsInTheCodePage) {
    EXPECT_EQ(HostName(host), "srv.example.org");
    host.names = {{NameFormat::netBios, {0, L"сервер"}}};
    EXPECT_EQ(HostName(host), "??????");
}

TEST_F(HostIdentityTest, NameInARecordIsNothingWhenTheSystemGivesNone) {
    host.names.clear();
    EXPECT_EQ(HostName(host), std::nullopt);
}

TEST_F(HostIdentityTest, NamespacePrefixNamesTheServerOfTheClassDefinition) {
    EXPECT_EQ(BuildNamespacePrefix(host, LR"(root\QVQ)", L""), LR"(\\SRV\root\QVQ:)");
    EXPECT_EQ(host.asked, std::vector{classQueryAsked});
}

TEST_F(HostIdentityTest, NamespacePrefixKeepsNamesThatTheCodePageLacks) {
    host.Answer(classQuery, {{{"__SERVER", "СЕРВЕР"}}});
    EXPECT_EQ(BuildNamespacePrefix(host, LR"(root\ДИСКИ)", L""), LR"(\\СЕРВЕР\root\ДИСКИ:)");
}

TEST_F(HostIdentityTest, NamespacePrefixEndsWithTheClassName) {
    EXPECT_EQ(BuildNamespacePrefix(host, LR"(root\cimv2)", L"QV_X"), LR"(\\SRV\root\cimv2:QV_X)");
}

TEST_F(HostIdentityTest, NamespacePrefixTakesTheFirstOfSeveralDefinitions) {
    host.Answer(classQuery, {definition, Properties{{"__SERVER", "OTHER"}}});
    EXPECT_EQ(BuildNamespacePrefix(host, LR"(root\QVQ)", L""), LR"(\\SRV\root\QVQ:)");
}

TEST_F(HostIdentityTest, NamespacePrefixBeginsWithThreeBackslashesWithoutTheClassDefinition) {
    host.Answer(classQuery, {});
    EXPECT_EQ(BuildNamespacePrefix(host, LR"(root\QVQ)", L""), LR"(\\\root\QVQ:)");
}

TEST_F(HostIdentityTest, NamespacePrefixBeginsWithThreeBackslashesWhenTheQueryFails) {
    host.Fail(classQuery);
    EXPECT_EQ(BuildNamespacePrefix(host, LR"(root\QVQ)", L""), LR"(\\\root\QVQ:)");
}

TEST_F(HostIdentityTest, NamespacePrefixBeginsWithThreeBackslashesWithoutAServer) {
    host.Answer(classQuery, {{{"__SERVER", std::monostate{}}}});
    EXPECT_EQ(BuildNamespacePrefix(host, LR"(root\QVQ)", L""), LR"(\\\root\QVQ:)");
}

TEST_F(HostIdentityTest, ComputerSystemPathIsTheClassPathWithBothKeys) {
    host.names = {{NameFormat::netBios, {0, L"SRV"}}};
    std::wstring path;
    EXPECT_EQ(BuildComputerSystemPath(host, host, path), Status::noError);
    EXPECT_EQ(path,
              LR"(\\SRV\root\QVQ:QV_WinComputerSystem)"
              LR"(.CreationClassName="QV_WinComputerSystem",Name="SRV")");
    EXPECT_EQ(host.asked, std::vector{classQueryAsked});
}

TEST_F(HostIdentityTest, ComputerSystemPathKeepsNamesThatTheCodePageLacks) {
    host.names = {{NameFormat::netBios, {0, L"сервер"}}};
    host.Answer(classQuery, {{{"__PATH", R"(\\СЕРВЕР\root\QVQ:QV_WinComputerSystem)"}}});
    std::wstring path;
    EXPECT_EQ(BuildComputerSystemPath(host, host, path), Status::noError);
    EXPECT_EQ(path,
              LR"(\\СЕРВЕР\root\QVQ:QV_WinComputerSystem)"
              LR"(.CreationClassName="QV_WinComputerSystem",Name="сервер")");
}

TEST_F(HostIdentityTest, ComputerSystemPathHasNoClassPathWhereTheDefinitionHasNone) {
    host.Answer(classQuery, {Properties{{"__SERVER", "SRV"}}});
    std::wstring path;
    EXPECT_EQ(BuildComputerSystemPath(host, host, path), Status::noError);
    EXPECT_EQ(path, LR"(.CreationClassName="QV_WinComputerSystem",Name="srv.example.org")");
}

TEST_F(HostIdentityTest, ComputerSystemPathFailsWithoutTheClassDefinition) {
    host.Answer(classQuery, {});
    ExpectNoPath();
}

TEST_F(HostIdentityTest, ComputerSystemPathFailsAsTheQueryFails) {
    constexpr auto invalidNamespace = static_cast<Status>(0x8004100E);
    host.Fail(classQuery, invalidNamespace);
    ExpectNoPath(invalidNamespace);
}

TEST_F(HostIdentityTest, ComputerSystemPathFailsWithTwoClassDefinitions) {
    host.Answer(classQuery, {definition, definition});
    ExpectNoPath();
}

TEST_F(HostIdentityTest, ComputerSystemPathFailsWithoutAHostName) {
    host.names.clear();
    ExpectNoPath();
}

TEST_F(HostIdentityTest, NothingIsKeptBetweenCalls) {
    BuildNamespacePrefix(host, LR"(root\QVQ)", L"");
    host.Answer(classQuery, {Properties{{"__SERVER", "RENAMED"}}});
    EXPECT_EQ(BuildNamespacePrefix(host, LR"(root\QVQ)", L""), LR"(\\RENAMED\root\QVQ:)");
    EXPECT_EQ(host.asked.size(), 2U);
}

}  // namespace
}  // namespace qv::test
