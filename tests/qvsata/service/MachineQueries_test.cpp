#include "qvsata/service/MachineQueries.h"

#include <gtest/gtest.h>

#include "qvsata/service/JournaledMachine.h"
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

/// A host whose media rows have these serial numbers and tags, in this order.
RecordedHost HostOfTags(std::vector<std::pair<const char*, CimValue>> media) {
    HostBuilder host;
    for (auto& [serialNumber, tag] : media) {
        host.Media(serialNumber, {{"Tag", std::move(tag)}});
    }
    return host.Build();
}

/// Returns the serial number of the media row that is found by its tag; "none" if there is none.
std::string MediaFound(const MachineQueries& port, std::string_view tag) {
    const auto found = port.FindRow(R"(root\CIMv2)", "Win32_PhysicalMedia", "Tag", tag);
    return found->row ? std::get<std::string>(found->row->Get("SerialNumber").value) : "none";
}

TEST(MachineQueries, FindsTheFirstRowThatHasExactlyAText) {
    const MachineQueries port =
        QueriesOf(HostOfTags({{"S1", "d"}, {"S2", "D"}, {"S3", "D"}, {"S4", R"(X.A="1")"}}));
    EXPECT_EQ(MediaFound(port, "D"), "S2");
    EXPECT_EQ(MediaFound(port, "d"), "S1");
    EXPECT_EQ(MediaFound(port, R"(X.A="1")"), "S4");
    EXPECT_EQ(MediaFound(port, R"(x.A="1")"), "none");
    EXPECT_EQ(MediaFound(port, ""), "none");
}

TEST(MachineQueries, FindsARowWithoutATextByTheEmptyOne) {
    EXPECT_EQ(MediaFound(QueriesOf(HostOfTags({{"S1", "D"}, {"S2", 3}, {"S3", ""}})), ""), "S2");
    EXPECT_EQ(MediaFound(QueriesOf(HostOfTags({{"S1", "D"}, {"S2", {}}})), ""), "S2");
}

TEST(MachineQueries, FindsARowByAPropertyThatIsNoKey) {
    const auto found = QueriesOf(HostOfTags({{"S1", "A"}, {"S2", "B"}, {"S2", "C"}}))
                           .FindRow(R"(root\CIMv2)", "win32_physicalmedia", "serialnumber", "S2");
    ASSERT_TRUE(found && found->row);
    EXPECT_EQ(std::get<std::string>(found->row->Get("Tag").value), "B");
    EXPECT_EQ(found->rowCount, 3U);
}

TEST(MachineQueries, CountsAllRowsWhereItFindsOneOfThem) {
    const MachineQueries port = QueriesOf(HostOfTags({{"S1", "A"}, {"S2", "B"}}));
    EXPECT_EQ(port.FindRow(R"(root\CIMv2)", "Win32_PhysicalMedia", "Tag", "B")->rowCount, 2U);
    EXPECT_EQ(port.FindRow(R"(root\CIMv2)", "Win32_PhysicalMedia", "Tag", "C")->rowCount, 2U);
    EXPECT_EQ(port.FindRow(R"(root\CIMv2)", "Win32_None", "Tag", "C")->rowCount, 0U);
    EXPECT_EQ(port.FindRow("root/other", "Win32_PhysicalMedia", "Tag", "C")->rowCount, 0U);
}

/// Returns the one query that `ask` leaves in the journal of a host.
template <typename Ask>
SourceQuery NotedBy(const RecordedHost& host, Ask ask) {
    const auto journal = std::make_shared<SourceJournal>();
    ask(MachineQueries(WithJournal(ConnectRecorded(std::make_shared<const RecordedHost>(host)),
                                   MachineKind::recorded, journal)));
    EXPECT_EQ(journal->Size(), 1U);
    return journal->Queries().back();
}

void ExpectTheNoteOfAQuery(const RecordedHost& host, const std::string& nameSpace,
                           const std::string& className) {
    const SourceQuery query = NotedBy(host, [&](const MachineQueries& port) {
        platform::Rows rows;
        port.RunWqlQuery(nameSpace, "SELECT * FROM " + className, rows);
    });
    const SourceQuery finding = NotedBy(
        host, [&](const MachineQueries& port) { port.FindRow(nameSpace, className, "Tag", "B"); });
    EXPECT_EQ(finding.nameSpace, query.nameSpace);
    EXPECT_EQ(finding.className, query.className);
    EXPECT_EQ(finding.text, query.text);
    EXPECT_EQ(finding.rows, query.rows);
    EXPECT_EQ(finding.status, query.status);
    EXPECT_EQ(finding.end, query.end);
}

TEST(MachineQueries, NoteTheFindingOfARowAsAQueryOfAll) {
    const RecordedHost host = HostOfTags({{"S1", "A"}, {"S2", "B"}});
    ExpectTheNoteOfAQuery(host, R"(root\CIMv2)", "Win32_PhysicalMedia");
    ExpectTheNoteOfAQuery(host, R"(root\CIMv2)", "Win32_None");
    ExpectTheNoteOfAQuery(host, R"(root\other)", "Win32_PhysicalMedia");
    HostBuilder failing;
    failing.Fail("Win32_PhysicalMedia");
    ExpectTheNoteOfAQuery(failing.Build(), R"(root\CIMv2)", "Win32_PhysicalMedia");
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
