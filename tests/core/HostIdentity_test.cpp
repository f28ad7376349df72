#include "source/HostIdentity.h"

#include <gtest/gtest.h>

#include "tests/support/ScriptedHost.h"

namespace qv {
namespace {

using platform::NameFormat;
using test::ScriptedHost;

const std::string classQuery = R"(SELECT * FROM meta_class WHERE __CLASS = "QV_WinComputerSystem")";
const std::string classQueryAsked = R"(root\QVQ: )" + classQuery;
const test::Properties definition{{"__SERVER", "SRV"},
                                  {"__PATH", R"(\\SRV\root\QVQ:QV_WinComputerSystem)"}};

class HostIdentity : public testing::Test {
protected:
    HostIdentity() {
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

    // BuildComputerSystemPath must fail with the status and leave its output.
    void ExpectNoPath(Status status = Status::failed) {
        std::wstring path = L"before";
        EXPECT_EQ(BuildComputerSystemPath(host, host, path), status);
        EXPECT_EQ(path, L"before");
    }

    ScriptedHost host;
};

TEST_F(HostIdentity, ComputerSystemClassIsTheWindowsOne) {
    EXPECT_EQ(GetComputerSystemClassName(), "QV_WinComputerSystem");
}

TEST_F(HostIdentity, NameInADomainIsTheFullyQualifiedOne) {
    EXPECT_EQ(NameOfHost(), L"srv.example.org");
}

TEST_F(HostIdentity, NameIsTheDnsHostNameWithoutAFullyQualifiedOne) {
    host.names[NameFormat::dnsFullyQualified] = {87, L"unused"};
    EXPECT_EQ(NameOfHost(), L"srv");
}

TEST_F(HostIdentity, NameIsTheNetBiosNameWithoutDnsNames) {
    host.names[NameFormat::dnsFullyQualified] = {87, L""};
    host.names[NameFormat::dnsHostname] = {8, L""};
    EXPECT_EQ(NameOfHost(), L"SRV");
}

TEST_F(HostIdentity, NameThatTheSystemGivesEmptyIsTaken) {
    host.names[NameFormat::dnsFullyQualified] = {0, L""};
    EXPECT_EQ(NameOfHost(), L"");
}

TEST_F(HostIdentity, WithoutANameTheErrorIsThatOfTheLastAttempt) {
    host.names = {{NameFormat::dnsFullyQualified, {5, L""}},
                  {NameFormat::dnsHostname, {6, L""}},
                  {NameFormat::netBios, {8, L""}}};
    std::wstring name = L"before";
    EXPECT_EQ(GetHostName(host, name), 8U);
    EXPECT_EQ(name, L"before");
}

TEST_F(HostIdentity, NameIsWide) {
    host.names = {{NameFormat::netBios, {0, L"сервер"}}};
    EXPECT_EQ(NameOfHost(), L"сервер");
}

TEST_F(HostIdentity, NameInARecordIsInTheCodePage) {
    EXPECT_EQ(HostName(host), "srv.example.org");
    host.names = {{NameFormat::netBios, {0, L"сервер"}}};
    EXPECT_EQ(HostName(host), "??????");
}

TEST_F(HostIdentity, NameInARecordIsNothingWhenTheSystemGivesNone) {
    host.names.clear();
    EXPECT_EQ(HostName(host), std::nullopt);
}

TEST_F(HostIdentity, NamespacePrefixNamesTheServerOfTheClassDefinition) {
    EXPECT_EQ(BuildNamespacePrefix(host, LR"(root\QVQ)", L""), LR"(\\SRV\root\QVQ:)");
    EXPECT_EQ(host.asked, std::vector{classQueryAsked});
}

TEST_F(HostIdentity, NamespacePrefixKeepsNamesThatTheCodePageLacks) {
    host.Answer(classQuery, {{{"__SERVER", "СЕРВЕР"}}});
    EXPECT_EQ(BuildNamespacePrefix(host, LR"(root\ДИСКИ)", L""), LR"(\\СЕРВЕР\root\ДИСКИ:)");
}

TEST_F(HostIdentity, NamespacePrefixEndsWithTheClassName) {
    EXPECT_EQ(BuildNamespacePrefix(host, LR"(root\cimv2)", L"QV_X"), LR"(\\SRV\root\cimv2:QV_X)");
}

TEST_F(HostIdentity, NamespacePrefixTakesTheFirstOfSeveralDefinitions) {
    host.Answer(classQuery, {definition, test::Properties{{"__SERVER", "OTHER"}}});
    EXPECT_EQ(BuildNamespacePrefix(host, LR"(root\QVQ)", L""), LR"(\\SRV\root\QVQ:)");
}

TEST_F(HostIdentity, NamespacePrefixBeginsWithThreeBackslashesWithoutTheClassDefinition) {
    host.Answer(classQuery, {});
    EXPECT_EQ(BuildNamespacePrefix(host, LR"(root\QVQ)", L""), LR"(\\\root\QVQ:)");
}

TEST_F(HostIdentity, NamespacePrefixBeginsWithThreeBackslashesWhenTheQueryFails) {
    host.Fail(classQuery);
    EXPECT_EQ(BuildNamespacePrefix(host, LR"(root\QVQ)", L""), LR"(\\\root\QVQ:)");
}

TEST_F(HostIdentity, NamespacePrefixBeginsWithThreeBackslashesWithoutAServer) {
    host.Answer(classQuery, {{{"__SERVER", std::monostate{}}}});
    EXPECT_EQ(BuildNamespacePrefix(host, LR"(root\QVQ)", L""), LR"(\\\root\QVQ:)");
}

TEST_F(HostIdentity, ComputerSystemPathIsTheClassPathWithBothKeys) {
    host.names = {{NameFormat::netBios, {0, L"SRV"}}};
    std::wstring path;
    EXPECT_EQ(BuildComputerSystemPath(host, host, path), Status::noError);
    EXPECT_EQ(path,
              LR"(\\SRV\root\QVQ:QV_WinComputerSystem)"
              LR"(.CreationClassName="QV_WinComputerSystem",Name="SRV")");
    EXPECT_EQ(host.asked, std::vector{classQueryAsked});
}

TEST_F(HostIdentity, ComputerSystemPathKeepsNamesThatTheCodePageLacks) {
    host.names = {{NameFormat::netBios, {0, L"сервер"}}};
    host.Answer(classQuery, {{{"__PATH", R"(\\СЕРВЕР\root\QVQ:QV_WinComputerSystem)"}}});
    std::wstring path;
    EXPECT_EQ(BuildComputerSystemPath(host, host, path), Status::noError);
    EXPECT_EQ(path,
              LR"(\\СЕРВЕР\root\QVQ:QV_WinComputerSystem)"
              LR"(.CreationClassName="QV_WinComputerSystem",Name="сервер")");
}

TEST_F(HostIdentity, ComputerSystemPathHasNoClassPathWhereTheDefinitionHasNone) {
    host.Answer(classQuery, {test::Properties{{"__SERVER", "SRV"}}});
    std::wstring path;
    EXPECT_EQ(BuildComputerSystemPath(host, host, path), Status::noError);
    EXPECT_EQ(path, LR"(.CreationClassName="QV_WinComputerSystem",Name="srv.example.org")");
}

TEST_F(HostIdentity, ComputerSystemPathFailsWithoutTheClassDefinition) {
    host.Answer(classQuery, {});
    ExpectNoPath();
}

TEST_F(HostIdentity, ComputerSystemPathFailsAsTheQueryFails) {
    constexpr auto invalidNamespace = static_cast<Status>(0x8004100E);
    host.Fail(classQuery, invalidNamespace);
    ExpectNoPath(invalidNamespace);
}

TEST_F(HostIdentity, ComputerSystemPathFailsWithTwoClassDefinitions) {
    host.Answer(classQuery, {definition, definition});
    ExpectNoPath();
}

TEST_F(HostIdentity, ComputerSystemPathFailsWithoutAHostName) {
    host.names.clear();
    ExpectNoPath();
}

TEST_F(HostIdentity, NothingIsKeptBetweenCalls) {
    BuildNamespacePrefix(host, LR"(root\QVQ)", L"");
    host.Answer(classQuery, {test::Properties{{"__SERVER", "RENAMED"}}});
    EXPECT_EQ(BuildNamespacePrefix(host, LR"(root\QVQ)", L""), LR"(\\RENAMED\root\QVQ:)");
    EXPECT_EQ(host.asked.size(), 2U);
}

}  // namespace
}  // namespace qv
