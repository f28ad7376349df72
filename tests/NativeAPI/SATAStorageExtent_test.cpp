#include <gtest/gtest.h>

#include "tests/support/Builders.h"
#include "tests/support/ExpectedCatalogue.h"
#include "tests/support/Records.h"

namespace qv::test {
namespace {

using Values = std::vector<std::string>;

constexpr const char* storageExtentClass = "QV_SATAStorageExtent";
const std::string partition0 = "Disk #0, Partition #0";
const std::string partition1 = "Disk #0, Partition #1";

class SATAStorageExtentTest : public testing::Test, public Builders {
protected:
    SATAStorageExtentTest() {
        host.Answer(disksQuery, {Disk(diskId)});
        host.Answer(partitionLinksQuery, {PartitionLink(drive0, partition0)});
        host.Answer(partitionsQuery, {Partition(partition0), Partition(partition1)});
    }

    const Values keysStatusAndName{"SystemName", "CreationClassName", "SystemCreationClassName",
                                   "DeviceID",   "OperationalStatus", "StatusDescriptions",
                                   "ElementName"};
};

TEST_F(SATAStorageExtentTest, PublishesADiskWithItsPropertiesInOrder) {
    EXPECT_EQ(All(storageExtentClass), RecordList{ExpectedRecord(storageExtentClass)});
}

TEST_F(SATAStorageExtentTest, AsksForDisksLinksAndPartitions) {
    const auto expected = InCimv2({disksQuery, partitionLinksQuery, partitionsQuery});
    All(storageExtentClass);
    EXPECT_EQ(host.asked, expected);
    host.asked.clear();
    Keys(storageExtentClass);
    EXPECT_EQ(host.asked, expected);
}

TEST_F(SATAStorageExtentTest, DoesNotAskForPartitionsWhenTheLinksCannotBeHad) {
    host.Fail(partitionLinksQuery);
    const RecordList records = All(storageExtentClass);
    EXPECT_EQ(host.asked, InCimv2({disksQuery, partitionLinksQuery}));
    EXPECT_EQ(NamesOf(records.at(0)), keysStatusAndName);
}

TEST_F(SATAStorageExtentTest, AsksForPartitionsAlsoWhenThereAreNoLinks) {
    host.Answer(partitionLinksQuery, {});
    EXPECT_EQ(NamesOf(All(storageExtentClass).at(0)), keysStatusAndName);
    EXPECT_EQ(host.asked, InCimv2({disksQuery, partitionLinksQuery, partitionsQuery}));
}

TEST_F(SATAStorageExtentTest, HasNoPartitionPropertiesWhenThePartitionsCannotBeHad) {
    host.Fail(partitionsQuery);
    EXPECT_EQ(NamesOf(All(storageExtentClass).at(0)), keysStatusAndName);
}

TEST_F(SATAStorageExtentTest, IsNoneWhenTheDisksCannotBeHad) {
    host.Fail(disksQuery);
    EXPECT_EQ(All(storageExtentClass), RecordList{});
    EXPECT_EQ(host.asked.size(), 3U);
}

TEST_F(SATAStorageExtentTest, CarriesOnlyKeysWhenOnlyKeysAreAskedFor) {
    EXPECT_EQ(Keys("qv_satastorageextent"),
              RecordList{Record("qv_satastorageextent",
                                {Key("SystemName", "host.example.org"),
                                 Key("CreationClassName", "qv_satastorageextent"),
                                 Key("SystemCreationClassName", "QV_WinComputerSystem"),
                                 Key("DeviceID", diskKey)})});
    EXPECT_TRUE(host.log.empty());
}

TEST_F(SATAStorageExtentTest, LeavesSystemNameOutWithoutAHostName) {
    ForgetHostName();
    EXPECT_EQ(NamesOf(Keys(storageExtentClass).at(0)),
              (Values{"CreationClassName", "SystemCreationClassName", "DeviceID"}));
}

TEST_F(SATAStorageExtentTest, IsFoundByItsPathInAnyLetterCase) {
    const std::string path = R"(qv_satastorageextent.systemname="HOST.EXAMPLE.ORG",)"
                             R"(CreationClassName="QV_SATAStorageExtent",)"
                             R"(SystemCreationClassName="QV_WinComputerSystem",DeviceID=")" +
                             diskKey + "\"";
    EXPECT_EQ(At(storageExtentClass, path), All(storageExtentClass));
    EXPECT_EQ(At(storageExtentClass, R"(QV_SATAStorageExtent.DeviceID="x")"), RecordList{});
}

TEST_F(SATAStorageExtentTest, OfADiskWithoutLinkHasKeysStatusAndElementNameOnly) {
    host.Answer(partitionLinksQuery, {PartitionLink(R"(\\.\PHYSICALDRIVE5)", partition0)});
    EXPECT_EQ(NamesOf(All(storageExtentClass).at(0)), keysStatusAndName);
}

TEST_F(SATAStorageExtentTest, PutsTheValuesOfEveryPartitionTheLastOneLast) {
    host.Answer(partitionLinksQuery,
                {PartitionLink(drive0, partition1), PartitionLink(drive0, partition0)});
    const RecordList records = All(storageExtentClass);
    EXPECT_EQ(ValuesOf(records, "Caption"),
              (Values{"caption of " + partition1, "caption of " + partition0}));
    EXPECT_EQ(records.at(0).properties.size(), keysStatusAndName.size() + 18);
}

TEST_F(SATAStorageExtentTest, OfDrive1AlsoJoinsThePartitionsOfDrive10) {
    host.Answer(disksQuery,
                {Disk("A", R"(\\.\PHYSICALDRIVE1)"), Disk("B", R"(\\.\PHYSICALDRIVE10)")});
    host.Answer(partitionLinksQuery, {PartitionLink(R"(\\.\PHYSICALDRIVE10)", partition0)});
    EXPECT_EQ(ValuesOf(All(storageExtentClass), "Caption"),
              (Values{"caption of " + partition0, "caption of " + partition0}));
}

TEST_F(SATAStorageExtentTest, FlagsAreFalseUnlessThePartitionSaysTrue) {
    host.Answer(partitionsQuery, {With(Partition(partition0), {{"Bootable", false},
                                                               {"BootPartition", std::monostate{}},
                                                               {"PrimaryPartition", "TRUE"}})});
    const RecordList records = All(storageExtentClass);
    EXPECT_EQ(ValuesOf(records, "Bootable"), Values{"FALSE"});
    EXPECT_EQ(ValuesOf(records, "BootPartition"), Values{"FALSE"});
    EXPECT_EQ(ValuesOf(records, "PrimaryPartition"), Values{"FALSE"});
    host.Answer(partitionsQuery, {With(Partition(partition0), {{"BootPartition", true}})});
    EXPECT_EQ(ValuesOf(All(storageExtentClass), "BootPartition"), Values{"TRUE"});
}

TEST_F(SATAStorageExtentTest, OfAPrimaryPartitionThatIsNotBootableSaysSo) {
    host.Answer(partitionsQuery,
                {With(Partition(partition0), {{"Bootable", false}, {"PrimaryPartition", true}})});
    EXPECT_EQ(ValuesOf(All(storageExtentClass), "Bootable"), Values{"FALSE"});
    EXPECT_EQ(ValuesOf(All(storageExtentClass), "PrimaryPartition"), Values{"TRUE"});
}

TEST_F(SATAStorageExtentTest, MissingTextsAreEmptyTexts) {
    host.Answer(disksQuery, {{{"InterfaceType", "IDE"}, {"DeviceID", drive0}}});
    host.Answer(partitionsQuery, {{{"DeviceID", partition0}}});
    const RecordList records = All(storageExtentClass);
    EXPECT_EQ(ValuesOf(records, "DeviceID"), Values{""});
    EXPECT_EQ(ValuesOf(records, "OperationalStatus"), Values{""});
    EXPECT_EQ(ValuesOf(records, "Caption"), Values{""});
    EXPECT_EQ(ValuesOf(records, "ConsumableBlocks"), Values{""});
    EXPECT_EQ(ValuesOf(records, "Bootable"), Values{"FALSE"});
}

TEST_F(SATAStorageExtentTest, IsNoneOfADiskOfAnotherInterfaceTypeThoughItHasPartitions) {
    host.Answer(disksQuery, {With(Disk(diskId), {{"InterfaceType", "USB"}})});
    EXPECT_EQ(All(storageExtentClass), RecordList{});
    EXPECT_EQ(Keys(storageExtentClass), RecordList{});
}

TEST_F(SATAStorageExtentTest, IsOneForEachIdeDiskInSourceOrder) {
    host.Answer(disksQuery, {Disk("D2"), With(Disk("S"), {{"InterfaceType", "SCSI"}}), Disk("D1")});
    EXPECT_EQ(ValuesOf(All(storageExtentClass), "DeviceID"), (Values{"D2", "D1"}));
}

TEST_F(SATAStorageExtentTest, LogsTheDescriptionOfEachPartitionWhileTheLevelIsBelow4) {
    host.Answer(partitionLinksQuery,
                {PartitionLink(drive0, partition0), PartitionLink(drive0, partition1)});
    host.level = 3;
    All(storageExtentClass);
    EXPECT_EQ(
        host.log,
        (std::vector<std::pair<int, std::string>>{
            {3, "NativeAPI::getQV_SATAStorageExtent| Description = description of " + partition0},
            {3,
             "NativeAPI::getQV_SATAStorageExtent| Description = description of " + partition1}}));
}

TEST_F(SATAStorageExtentTest, LogsNothingFromLevel4On) {
    host.level = 4;
    All(storageExtentClass);
    host.level = 5;
    All(storageExtentClass);
    host.level = 1024;
    All(storageExtentClass);
    EXPECT_TRUE(host.log.empty());
}

}  // namespace
}  // namespace qv::test
