#include "qvsata/service/MachineQueries.h"

#include <gtest/gtest.h>

#include "qvsata/service/RecordedMachine.h"
#include "tests/support/HostBuilder.h"

namespace qv::test {
namespace {

using namespace service;
using platform::NameFormat;
using platform::Value;

MachineQueries QueriesOf(RecordedHost host) {
    return MachineQueries(ConnectRecorded(std::make_shared<const RecordedHost>(std::move(host))));
}

TEST(MachineQueries, GivesTheRowsOfAQuery) {
    HostBuilder host;
    host.Disk(0, R"(IDE\DISKX\5&1)", {{"Status", {}}});
    platform::Rows rows;
    ASSERT_EQ(
        QueriesOf(host.Build()).RunWqlQuery(R"(root\CIMv2)", "SELECT * FROM Win32_DiskDrive", rows),
        Status::noError);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0]->Get("deviceid").status, Status::noError);
    EXPECT_EQ(rows[0]->Get("DeviceID").value.index(), Value(std::string()).index());
    EXPECT_EQ(std::get<std::string>(rows[0]->Get("Size").value), "500105249280");
    EXPECT_EQ(rows[0]->Get("Status").status, Status::noError);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(rows[0]->Get("Status").value));
    EXPECT_EQ(rows[0]->Get("Missing").status, Status::notFound);
}

TEST(MachineQueries, DropsEarlierRowsWhenAQueryFails) {
    HostBuilder host;
    host.Disk(0, "X").Fail("Win32_PhysicalMedia");
    const MachineQueries port = QueriesOf(host.Build());
    platform::Rows rows;
    port.RunWqlQuery(R"(root\CIMv2)", "SELECT * FROM Win32_DiskDrive", rows);
    EXPECT_EQ(port.RunWqlQuery(R"(root\CIMv2)", "SELECT * FROM Win32_PhysicalMedia", rows),
              Status::failed);
    EXPECT_TRUE(rows.empty());
    // WBEM_E_INVALID_NAMESPACE and WBEM_E_INVALID_QUERY.
    EXPECT_EQ(port.RunWqlQuery("root/other", "SELECT * FROM Win32_DiskDrive", rows),
              Status{0x8004100E});
    EXPECT_EQ(port.RunWqlQuery(R"(root\CIMv2)", "no query", rows), Status{0x80041017});
}

TEST(MachineQueries, RecordedNamesGivesTheRecordedNames) {
    const RecordedNames port({"S", "s.example.org", "s", "SNB"});
    EXPECT_EQ(port.NameInFormat(NameFormat::dnsFullyQualified).name, L"s.example.org");
    EXPECT_EQ(port.NameInFormat(NameFormat::dnsHostname).name, L"s");
    EXPECT_EQ(port.NameInFormat(NameFormat::netBios).name, L"SNB");
    EXPECT_EQ(port.NameInFormat(NameFormat::netBios).error, 0U);
}

TEST(MachineQueries, GivesTextsOfAnyLanguageWideAndInUtf8) {
    HostBuilder host;
    host.Disk(0, R"(IDE\DISKX\5&1)", {{"Caption", CimValue{"磁盘"}}, {"Index", CimValue{1}}});
    const MachineQueries port = QueriesOf(host.Build());
    platform::Rows rows;
    port.RunWqlQuery(R"(root\CIMv2)", "SELECT * FROM Win32_DiskDrive", rows);
    std::wstring text = L"before";
    EXPECT_EQ(rows.at(0)->GetWideText("Missing", text), Status::notFound);
    EXPECT_EQ(rows.at(0)->GetWideText("Index", text), Status::failed);
    EXPECT_EQ(text, L"before");
    EXPECT_EQ(rows.at(0)->GetWideText("Caption", text), Status::noError);
    EXPECT_EQ(text, L"磁盘");
    EXPECT_EQ(RecordedNames({}).ToNarrow(text), "磁盘");
}

TEST(MachineQueries, RecordedNamesRefusesANameThatWasNotRecorded) {
    EXPECT_EQ(RecordedNames({}).NameInFormat(NameFormat::netBios).error, 1210U);
}

TEST(MachineQueries, ToPlatformValueHandsValuesOverAsTheManagementServiceDoes) {
    EXPECT_EQ(std::get<std::int32_t>(ToPlatformValue(CimValue{std::int64_t{-3}})), -3);
    EXPECT_EQ(std::get<std::vector<std::int32_t>>(
                  ToPlatformValue(CimValue{std::vector<std::int64_t>{3, 4}})),
              (std::vector<std::int32_t>{3, 4}));
    EXPECT_EQ(std::get<std::string>(ToPlatformValue(CimValue{"x"})), "x");
    EXPECT_TRUE(std::get<bool>(ToPlatformValue(CimValue{true})));
    EXPECT_TRUE(std::holds_alternative<std::monostate>(ToPlatformValue(CimValue{})));
}

TEST(MachineQueries, ToPlatformValueMarksWhatNobodyReads) {
    EXPECT_TRUE(std::holds_alternative<platform::UnreadValue>(ToPlatformValue(CimValue{0.5})));
    EXPECT_TRUE(std::holds_alternative<platform::UnreadValue>(
        ToPlatformValue(CimValue{std::vector<bool>{true}})));
}

}  // namespace
}  // namespace qv::test
