#include "qvsata/service/RecordedMachine.h"

#include <gmock/gmock.h>

#include "qvsata/cim/ObjectPathParser.h"
#include "qvsata/cim/StatusCodes.h"
#include "tests/support/HostBuilder.h"
#include "tests/support/RecordedAnswers.h"

namespace qv::test {
namespace {

using namespace service;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr auto controllerId = R"(PCI\VEN_8086&REV_02\3)";
constexpr auto channelId = R"(PCIIDE\IDECHANNEL\4&0)";

RecordedHost SampleHost() {
    HostBuilder host;
    host.Controller(controllerId).Driver("msahci").Channel(channelId).Driver("atapi");
    host.Disk(0, R"(IDE\DISKX\5&1)").BehindChannel().Media("S1").Partition().Partition();
    host.Disk(1, R"(IDE\DISKY\5&2)", {{"Status", "Pred Fail"}}).FailurePrediction(true);
    return host.Build();
}

// Returns the relative paths of a query's results; the class name if a result has no path.
std::vector<std::string> Paths(const RecordedHost& host, const std::string& query) {
    const Answer answer = Ask(host, R"(root\CIMv2)", query);
    EXPECT_EQ(answer.status, Status::noError) << answer.message;
    std::vector<std::string> paths;
    for (const ObjectPtr& object : answer.objects) {
        paths.push_back(TextOf(*object, "__RELPATH"));
    }
    return paths;
}

TEST(RecordedMachine, AnswersWithTheRowsInOrder) {
    EXPECT_THAT(Paths(SampleHost(), "SELECT * FROM win32_diskdrive"),
                ElementsAre(R"(Win32_DiskDrive.DeviceID="\\\\.\\PHYSICALDRIVE0")",
                            R"(Win32_DiskDrive.DeviceID="\\\\.\\PHYSICALDRIVE1")"));
}

TEST(RecordedMachine, AnswersWithTheRowsThatMeetTheCondition) {
    EXPECT_THAT(Paths(SampleHost(), "SELECT Model FROM Win32_DiskDrive WHERE Status <> 'OK'"),
                ElementsAre(R"(Win32_DiskDrive.DeviceID="\\\\.\\PHYSICALDRIVE1")"));
    EXPECT_THAT(Paths(SampleHost(), R"(SELECT * FROM Win32_DiskDrive
                                        WHERE DeviceID = "\\\\.\\PhysicalDrive0")"),
                ElementsAre(R"(Win32_DiskDrive.DeviceID="\\\\.\\PHYSICALDRIVE0")"));
}

TEST(RecordedMachine, AnswersAboutAClassWithoutRows) {
    RecordedHost host;
    host.DefineClass(R"(root\CIMv2)", "C");
    EXPECT_THAT(Paths(host, "SELECT * FROM C"), IsEmpty());
}

TEST(RecordedMachine, FailsWithTheStatusOfTheManagementService) {
    const RecordedHost host = HostBuilder().Fail("Win32_PhysicalMedia").Build();
    const auto statusOf = [&host](std::string_view nameSpace, std::string_view query) {
        return static_cast<std::uint32_t>(Ask(host, nameSpace, query).status);
    };
    EXPECT_EQ(statusOf("root/cimv2", "SELECT * FROM Win32_DiskDrive"), 0U);
    EXPECT_EQ(statusOf("root/default", "SELECT * FROM Win32_DiskDrive"), 0x8004100EU);
    EXPECT_EQ(statusOf("root/cimv2", "SELECT * FROM Win32_Fan"), 0x80041010U);
    EXPECT_EQ(statusOf("root/cimv2", "SELECT * FROM Win32_PhysicalMedia"), 0x80041001U);
    EXPECT_EQ(statusOf("root/cimv2", "SELECT"), 0x80041017U);
    EXPECT_EQ(statusOf("root/cimv2", "ASSOCIATORS OF {C=1} WHERE AssocClass=Win32_Fan"),
              0x80041010U);
}

TEST(RecordedMachine, SaysInOneLineWhatFailed) {
    const RecordedHost host = HostBuilder().Fail("Win32_PhysicalMedia").Build();
    EXPECT_EQ(Ask(host, "root/cimv2", "SELECT * FROM C").message, "unknown class 'C'");
    EXPECT_EQ(Ask(host, "root/cimv2", "SELECT * FROM win32_physicalmedia").message,
              "queries of Win32_PhysicalMedia fail");
    EXPECT_EQ(Ask(host, "root/cimv2", "SELECT").message,
              "query: column 7: expected a property name or *");
}

TEST(RecordedMachine, AnswersAboutItsClasses) {
    RecordedHost host({"SRV01", "", "", ""});
    host.DefineClass(R"(root\QVQ)", "QV_WinComputerSystem");
    host.DefineClass(R"(root\QVQ)", "QV_SATADiskDrive");
    const auto answer = Ask(host, R"(root\QVQ)",
                            R"(SELECT * FROM meta_class WHERE __CLASS = "qv_wincomputersystem")");
    ASSERT_EQ(answer.objects.size(), 1U);
    EXPECT_EQ(TextOf(*answer.objects[0], "__CLASS"), "QV_WinComputerSystem");
    EXPECT_EQ(TextOf(*answer.objects[0], "__RELPATH"), "QV_WinComputerSystem");
    EXPECT_EQ(TextOf(*answer.objects[0], "__PATH"), R"(\\SRV01\root\QVQ:QV_WinComputerSystem)");
    EXPECT_EQ(Ask(host, R"(root\QVQ)", "SELECT * FROM meta_class").objects.size(), 2U);
}

TEST(RecordedMachine, FindsAssociatedObjectsFromEitherEnd) {
    EXPECT_THAT(Paths(SampleHost(),
                      R"(ASSOCIATORS OF {Win32_IDEController.DeviceID="PCI\\VEN_8086&REV_02\\3"})"
                      " where assocclass=Win32_PnPDevice"),
                ElementsAre(R"(Win32_PnPEntity.DeviceID="PCI\\VEN_8086&REV_02\\3")"));
    EXPECT_THAT(Paths(SampleHost(),
                      R"(ASSOCIATORS OF {Win32_DiskPartition.DeviceID="Disk #0, Partition #1"})"
                      " where assocclass=Win32_DiskDriveToDiskPartition"),
                ElementsAre(R"(Win32_DiskDrive.DeviceID="\\\\.\\PHYSICALDRIVE0")"));
}

TEST(RecordedMachine, GivesOneAssociatedObjectPerRowInOrder) {
    EXPECT_THAT(
        Paths(SampleHost(), R"(ASSOCIATORS OF {Win32_DiskDrive.DeviceID="\\\\.\\PHYSICALDRIVE0"})"
                            " where assocclass=Win32_DiskDriveToDiskPartition"),
        ElementsAre(R"(Win32_DiskPartition.DeviceID="Disk #0, Partition #0")",
                    R"(Win32_DiskPartition.DeviceID="Disk #0, Partition #1")"));
}

TEST(RecordedMachine, ComparesThePathIrrespectiveOfServerNamespaceAndCase) {
    EXPECT_THAT(Paths(SampleHost(),
                      R"(ASSOCIATORS OF {\\.\ROOT\cimv2:win32_diskdrive="\\\\.\\physicaldrive0"})"
                      " where assocclass=WIN32_DiskDriveToDiskPartition"),
                testing::SizeIs(2));
}

TEST(RecordedMachine, SearchesAllClassesWithoutAnAssociationClass) {
    EXPECT_THAT(Paths(SampleHost(),
                      R"(ASSOCIATORS OF {Win32_PnPEntity.DeviceID="PCIIDE\\IDECHANNEL\\4&0"})"),
                UnorderedElementsAre(R"(Win32_IDEController.DeviceID="PCI\\VEN_8086&REV_02\\3")",
                                     R"(Win32_IDEController.DeviceID="PCIIDE\\IDECHANNEL\\4&0")",
                                     R"(Win32_SystemDriver.Name="atapi")"));
}

TEST(RecordedMachine, NarrowsAssociatedObjectsByResultClassAndRoles) {
    const std::string channel = R"(ASSOCIATORS OF {Win32_PnPEntity="PCIIDE\\IDECHANNEL\\4&0"})";
    EXPECT_THAT(Paths(SampleHost(), channel + " WHERE ResultClass=win32_systemdriver"),
                ElementsAre(R"(Win32_SystemDriver.Name="atapi")"));
    EXPECT_THAT(Paths(SampleHost(), channel + " WHERE Role=Antecedent"),
                ElementsAre(R"(Win32_SystemDriver.Name="atapi")"));
    EXPECT_THAT(Paths(SampleHost(), channel + " WHERE ResultRole=SameElement"),
                ElementsAre(R"(Win32_IDEController.DeviceID="PCIIDE\\IDECHANNEL\\4&0")"));
    EXPECT_THAT(Paths(SampleHost(), channel + " WHERE Role=Antecedent ResultRole=Antecedent"),
                IsEmpty());
}

TEST(RecordedMachine, GivesClassesOfAssociatedObjectsOnce) {
    const auto answer =
        Ask(SampleHost(), "root/cimv2",
            R"(ASSOCIATORS OF {Win32_DiskDrive="\\\\.\\PHYSICALDRIVE0"} WHERE ClassDefsOnly)");
    ASSERT_EQ(answer.objects.size(), 1U);
    EXPECT_EQ(answer.objects[0]->ClassName(), "Win32_DiskPartition");
    EXPECT_EQ(TextOf(*answer.objects[0], "__RELPATH"), "Win32_DiskPartition");
}

TEST(RecordedMachine, LeavesOutAssociatedObjectsWithoutARow) {
    HostBuilder host;
    host.Controller(controllerId).Device(controllerId, R"(IDE\GONE\1)");
    EXPECT_THAT(
        Paths(host.Build(), R"(ASSOCIATORS OF {Win32_IDEController="PCI\\VEN_8086&REV_02\\3"})"
                            " WHERE AssocClass=Win32_IDEControllerDevice"),
        IsEmpty());
}

TEST(RecordedMachine, NeedsNoRowForThePathItself) {
    HostBuilder host;
    host.Entity(channelId, "Channel").Device("GONE", channelId);
    EXPECT_THAT(Paths(host.Build(), R"(ASSOCIATORS OF {Win32_IDEController="GONE"})"),
                ElementsAre(R"(Win32_PnPEntity.DeviceID="PCIIDE\\IDECHANNEL\\4&0")"));
}

TEST(RecordedMachine, SkipsFailingClassesWhereAllAreSearched) {
    HostBuilder host;
    host.Controller(controllerId).Driver("msahci").Fail("Win32_PnPDevice");
    EXPECT_THAT(
        Paths(host.Build(), R"(ASSOCIATORS OF {Win32_PnPEntity="PCI\\VEN_8086&REV_02\\3"})"),
        ElementsAre(R"(Win32_SystemDriver.Name="msahci")"));
}

TEST(RecordedMachine, FailsWhereAnAssociationLeadsToAClassThatFails) {
    HostBuilder host;
    host.Controller(controllerId).Driver("msahci").Fail("Win32_SystemDriver");
    const Answer answer = Ask(host.Build(), R"(root\CIMv2)",
                              R"(ASSOCIATORS OF {Win32_PnPEntity="PCI\\VEN_8086&REV_02\\3"})"
                              " WHERE AssocClass = Win32_SystemDriverPNPEntity");
    EXPECT_EQ(answer.status, Status::failed);
    EXPECT_EQ(answer.unreadClass, "Win32_SystemDriver");
}

TEST(RecordedMachine, FailsWhereAnAssociationLeadsToAClassThatWasNeverRecorded) {
    RecordedHost host({"SRV01", "", "", ""});
    host.AddRow(R"(root\CIMv2)", "Link", {{"A", "X.Key=1"}, {"B", "Y.Key=2"}});
    const Answer answer =
        Ask(host, R"(root\CIMv2)", "ASSOCIATORS OF {X.Key=1} WHERE AssocClass = Link");
    EXPECT_EQ(answer.status, status::invalidClass);
    EXPECT_EQ(answer.unreadClass, "Y");
}

TEST(RecordedMachine, FindsTheReferencesToAnObject) {
    const std::string disk = R"(REFERENCES OF {Win32_DiskDrive="\\\\.\\PHYSICALDRIVE0"})";
    EXPECT_THAT(Paths(SampleHost(), disk), testing::SizeIs(2));
    EXPECT_THAT(Paths(SampleHost(), disk + " WHERE Role=Dependent"), IsEmpty());
    const auto all =
        Ask(SampleHost(), "root/cimv2", R"(REFERENCES OF {Win32_PnPEntity="PCIIDE\\IDECHANNEL\\4&0"}
                         WHERE ResultClass=Win32_IDEControllerDevice)");
    ASSERT_EQ(all.objects.size(), 1U);
    EXPECT_EQ(TextOf(*all.objects[0], "Antecedent"),
              R"(\\SRV01\root\cimv2:Win32_IDEController.DeviceID="PCI\\VEN_8086&REV_02\\3")");
}

TEST(RecordedMachine, FindsAnObjectByItsPath) {
    const RecordedHost host = SampleHost();
    const auto find = [&host](std::string_view path) {
        const Answer answer =
            OpenRecorded(std::make_shared<const RecordedHost>(host), R"(root\CIMv2)")->Get(path);
        return answer.objects.empty() ? nullptr : answer.objects.front();
    };
    ASSERT_TRUE(find(R"(win32_diskdrive.deviceid='\\\\.\\physicaldrive1')"));
    EXPECT_EQ(TextOf(*find(R"(Win32_DiskDrive="\\\\.\\PHYSICALDRIVE1")"), "Status"), "Pred Fail");
    EXPECT_FALSE(find(R"(Win32_DiskDrive="\\\\.\\PHYSICALDRIVE2")"));
    EXPECT_FALSE(find("Win32_Fan='x'"));
    EXPECT_FALSE(find("root/x:Win32_Fan='x'"));
}

TEST(RecordedMachine, IsCopiedWithItsRows) {
    RecordedHost copy = SampleHost();
    const RecordedHost original = copy;
    copy.FailClass(R"(root\CIMv2)", "Win32_DiskDrive");
    EXPECT_THAT(Paths(original, "SELECT * FROM Win32_DiskDrive"), testing::SizeIs(2));
}

}  // namespace
}  // namespace qv::test
