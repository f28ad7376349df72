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
        host.names = {{NameFormat::dnsFullyQualified, {0, "srv.example.org"}},
                      {NameFormat::dnsHostname, {0, "srv"}},
                      {NameFormat::netBios, {0, "SRV"}}};
        host.Answer(classQuery, {definition});
    }

    std::string HostName() {
        std::string name;
        EXPECT_EQ(GetHostName(host, name), 0U);
        return name;
    }

    // BuildComputerSystemPath must fail and leave its output.
    void ExpectNoPath() {
        std::string path = "before";
        EXPECT_EQ(BuildComputerSystemPath(host, host, path), Status::failed);
        EXPECT_EQ(path, "before");
    }

    ScriptedHost host;
};

TEST_F(HostIdentity, ComputerSystemClassIsTheWindowsOne) {
    EXPECT_EQ(GetComputerSystemClassName(), "QV_WinComputerSystem");
}

TEST_F(HostIdentity, NameInADomainIsTheFullyQualifiedOne) {
    EXPECT_EQ(HostName(), "srv.example.org");
}

TEST_F(HostIdentity, NameIsTheDnsHostNameWithoutAFullyQualifiedOne) {
    host.names[NameFormat::dnsFullyQualified] = {87, "unused"};
    EXPECT_EQ(HostName(), "srv");
}

TEST_F(HostIdentity, NameIsTheNetBiosNameWithoutDnsNames) {
    host.names[NameFormat::dnsFullyQualified] = {87, ""};
    host.names[NameFormat::dnsHostname] = {8, ""};
    EXPECT_EQ(HostName(), "SRV");
}

TEST_F(HostIdentity, NameThatTheSystemGivesEmptyIsTaken) {
    host.names[NameFormat::dnsFullyQualified] = {0, ""};
    EXPECT_EQ(HostName(), "");
}

TEST_F(HostIdentity, WithoutANameTheErrorIsThatOfTheLastAttempt) {
    host.names = {{NameFormat::dnsFullyQualified, {5, ""}},
                  {NameFormat::dnsHostname, {6, ""}},
                  {NameFormat::netBios, {8, ""}}};
    std::string name = "before";
    EXPECT_EQ(GetHostName(host, name), 8U);
    EXPECT_EQ(name, "before");
}

TEST_F(HostIdentity, NamespacePrefixNamesTheServerOfTheClassDefinition) {
    EXPECT_EQ(BuildNamespacePrefix(host, R"(root\QVQ)", ""), R"(\\SRV\root\QVQ:)");
    EXPECT_EQ(host.asked, std::vector{classQueryAsked});
}

TEST_F(HostIdentity, NamespacePrefixEndsWithTheClassName) {
    EXPECT_EQ(BuildNamespacePrefix(host, R"(root\cimv2)", "QV_X"), R"(\\SRV\root\cimv2:QV_X)");
}

TEST_F(HostIdentity, NamespacePrefixTakesTheFirstOfSeveralDefinitions) {
    host.Answer(classQuery, {definition, test::Properties{{"__SERVER", "OTHER"}}});
    EXPECT_EQ(BuildNamespacePrefix(host, R"(root\QVQ)", ""), R"(\\SRV\root\QVQ:)");
}

TEST_F(HostIdentity, NamespacePrefixBeginsWithThreeBackslashesWithoutTheClassDefinition) {
    host.Answer(classQuery, {});
    EXPECT_EQ(BuildNamespacePrefix(host, R"(root\QVQ)", ""), R"(\\\root\QVQ:)");
}

TEST_F(HostIdentity, NamespacePrefixBeginsWithThreeBackslashesWhenTheQueryFails) {
    host.Fail(classQuery);
    EXPECT_EQ(BuildNamespacePrefix(host, R"(root\QVQ)", ""), R"(\\\root\QVQ:)");
}

TEST_F(HostIdentity, NamespacePrefixBeginsWithThreeBackslashesWithoutAServer) {
    host.Answer(classQuery, {{{"__SERVER", std::monostate{}}}});
    EXPECT_EQ(BuildNamespacePrefix(host, R"(root\QVQ)", ""), R"(\\\root\QVQ:)");
}

TEST_F(HostIdentity, ComputerSystemPathIsTheClassPathWithBothKeys) {
    host.names = {{NameFormat::netBios, {0, "SRV"}}};
    std::string path;
    EXPECT_EQ(BuildComputerSystemPath(host, host, path), Status::noError);
    EXPECT_EQ(path, R"(\\SRV\root\QVQ:QV_WinComputerSystem)"
                    R"(.CreationClassName="QV_WinComputerSystem",Name="SRV")");
    EXPECT_EQ(host.asked, std::vector{classQueryAsked});
}

TEST_F(HostIdentity, ComputerSystemPathHasNoClassPathWhereTheDefinitionHasNone) {
    host.Answer(classQuery, {test::Properties{{"__SERVER", "SRV"}}});
    std::string path;
    EXPECT_EQ(BuildComputerSystemPath(host, host, path), Status::noError);
    EXPECT_EQ(path, R"(.CreationClassName="QV_WinComputerSystem",Name="srv.example.org")");
}

TEST_F(HostIdentity, ComputerSystemPathFailsWithoutTheClassDefinition) {
    host.Answer(classQuery, {});
    ExpectNoPath();
}

TEST_F(HostIdentity, ComputerSystemPathFailsWhenTheQueryFails) {
    host.Fail(classQuery);
    ExpectNoPath();
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
    BuildNamespacePrefix(host, R"(root\QVQ)", "");
    host.Answer(classQuery, {test::Properties{{"__SERVER", "RENAMED"}}});
    EXPECT_EQ(BuildNamespacePrefix(host, R"(root\QVQ)", ""), R"(\\RENAMED\root\QVQ:)");
    EXPECT_EQ(host.asked.size(), 2U);
}

}  // namespace
}  // namespace qv
