// How a request selects a builder by class name and a record by key.
#include <gmock/gmock.h>

#include <algorithm>
#include <string>

#include "catalogue/Classes.h"
#include "catalogue/Hierarchy.h"
#include "tests/support/Builders.h"
#include "tests/support/Records.h"

namespace qv::test {
namespace {

using Values = std::vector<std::string>;

Properties DiskOf(const char* id, const char* model) {
    return {{"InterfaceType", "IDE"},
            {"PNPDeviceID", id},
            {"DeviceID", R"(\\.\PHYSICALDRIVE0)"},
            {"Model", model}};
}

class DispatchTest : public testing::Test, public Builders {
protected:
    DispatchTest() {
        host.Answer(disksQuery, {DiskOf(R"(IDE\A)", "first"), DiskOf(R"(IDE\B)", "second")});
        host.Answer(mediaQuery, {});
    }
};

TEST_F(DispatchTest, TakesTheClassNameInAnyCaseAndRecordsCarryItAsSpelled) {
    const RecordList records = api.BuildInstances("qv_sataDISKdrive", mode::allProperties, {});
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].className, "qv_sataDISKdrive");
    EXPECT_EQ(ValuesOf(records, "CreationClassName"),
              (Values{"qv_sataDISKdrive", "qv_sataDISKdrive"}));
}

TEST_F(DispatchTest, SuperclassesAndUnknownNamesGiveEmptyLists) {
    EXPECT_EQ(All("CIM_DiskDrive"), RecordList{});
    EXPECT_EQ(All("QV_SoftwareIdentity"), RecordList{});
    EXPECT_EQ(All("CIM_LogicalDevice"), RecordList{});
    EXPECT_EQ(All("QV_ComputerSystem"), RecordList{});
    EXPECT_EQ(All("QV_SATADiskDriveX"), RecordList{});
    EXPECT_EQ(All("QV_SATADisk"), RecordList{});
    EXPECT_EQ(All(""), RecordList{});
    EXPECT_TRUE(host.asked.empty());
}

Values UnpublishedNodes() {
    Values names;
    for (const ClassNode& node : ClassHierarchy()) {
        if (std::ranges::find(PublishedClasses(), node.name, &PublishedClass::name) ==
            PublishedClasses().end()) {
            names.emplace_back(node.name);
        }
    }
    return names;
}

TEST_F(DispatchTest, ServesNoNodeOfTheHierarchyThatIsNotPublished) {
    EXPECT_THAT(UnpublishedNodes(),
                testing::Each(testing::ResultOf([this](const auto& name) { return All(name); },
                                                testing::IsEmpty())));
    EXPECT_TRUE(host.asked.empty());
}

TEST_F(DispatchTest, EachClassIsBuiltFromItsOwnSource) {
    api.BuildAllInstances("QV_SATAPortController", mode::keysOnly);
    api.BuildAllInstances("QV_SATADiskDrive", mode::keysOnly);
    api.BuildAllInstances("QV_WinComputerSystem", mode::keysOnly);
    EXPECT_EQ(host.asked, InCimv2({controllersQuery, disksQuery}));
}

TEST_F(DispatchTest, HandsModeAndPathToTheBuilder) {
    const RecordList all = api.BuildInstances("QV_SATADiskDrive", mode::keysOnly, {});
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(NamesOf(all[0]).size(), 4U);
    const RecordList one =
        api.BuildInstances("QV_SATADiskDrive", mode::foundByKey, BuildObjectPath(all[1]));
    EXPECT_EQ(ValuesOf(one, "Model"), Values{"second"});
}

TEST_F(DispatchTest, BuildAllInstancesTakesNoPath) {
    EXPECT_EQ(api.BuildAllInstances("QV_SATADiskDrive", mode::allProperties),
              api.BuildInstances("QV_SATADiskDrive", mode::allProperties, {}));
}

TEST_F(DispatchTest, NothingIsKeptBetweenRequests) {
    api.BuildAllInstances("QV_SATADiskDrive", mode::keysOnly);
    host.Answer(disksQuery, {});
    EXPECT_EQ(api.BuildAllInstances("QV_SATADiskDrive", mode::keysOnly), RecordList{});
}

TEST_F(DispatchTest, LetsAnErrorOfABuilderThrough) {
    host.Answer(disksQuery, {With(DiskOf("A", "x"), "DeviceID", std::monostate{})});
    host.Answer(mediaQuery, {Properties{{"Tag", "T"}}});
    EXPECT_THROW(api.BuildAllInstances("QV_SATADiskDrive", mode::allProperties), RequestError);
    EXPECT_THROW(api.FindRecordByKey("QV_SATADiskDrive", "DeviceID", "A"), RequestError);
}

TEST_F(DispatchTest, FindInstanceReturnsTheFullRecordOfThePathIgnoringCase) {
    const std::string path =
        R"(qv_satadiskdrive.deviceid="ide&b",systemname="HOST.example.org",)"
        R"(CreationClassName="QV_SATADiskDrive",SystemCreationClassName="QV_WinComputerSystem")";
    const auto found = api.FindInstance("QV_SATADiskDrive", path);
    ASSERT_TRUE(found);
    EXPECT_EQ(ValuesOf({*found}, "Model"), Values{"second"});
}

TEST_F(DispatchTest, FindInstanceIgnoresTheServerAndTheNamespaceOfAReferenceInThePath) {
    const std::string path =
        R"(QV_SATADiskDrive.DeviceID="\\\\SRV\\root\\QVQ:IDE&A",SystemName="host.example.org",)"
        R"(CreationClassName="QV_SATADiskDrive",SystemCreationClassName="QV_WinComputerSystem")";
    const auto found = api.FindInstance("QV_SATADiskDrive", path);
    ASSERT_TRUE(found);
    EXPECT_EQ(ValuesOf({*found}, "Model"), Values{"first"});
}

TEST_F(DispatchTest, FindInstanceReturnsNothingForAnUnknownPath) {
    EXPECT_FALSE(api.FindInstance("QV_SATADiskDrive", "QV_SATADiskDrive.DeviceID=\"IDE&C\""));
}

TEST_F(DispatchTest, FindRecordByKeyReturnsTheFullRecordOfTheMatch) {
    const RecordList found = api.FindRecordByKey("QV_SATADiskDrive", "DeviceID", "IDE&B");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(ValuesOf(found, "DeviceID"), Values{"IDE&B"});
    EXPECT_EQ(ValuesOf(found, "Model"), Values{"second"});
}

TEST_F(DispatchTest, FindRecordByKeyReadsKeysOfAllAndThenTheFullRecordOfOne) {
    api.FindRecordByKey("QV_SATADiskDrive", "DeviceID", "IDE&A");
    EXPECT_EQ(host.asked, InCimv2({disksQuery, disksQuery, mediaQuery}));
}

TEST_F(DispatchTest, FindRecordByKeyFindsNothingForAValueThatDiffersInLetterCase) {
    EXPECT_EQ(api.FindRecordByKey("QV_SATADiskDrive", "DeviceID", "ide&a"), RecordList{});
    EXPECT_EQ(host.asked, InCimv2({disksQuery}));
}

TEST_F(DispatchTest, FindRecordByKeyFindsNothingForAnotherValueNameOrClass) {
    EXPECT_EQ(api.FindRecordByKey("QV_SATADiskDrive", "DeviceID", "IDE&C"), RecordList{});
    EXPECT_EQ(api.FindRecordByKey("QV_SATADiskDrive", "deviceid", "IDE&A"), RecordList{});
    EXPECT_EQ(api.FindRecordByKey("CIM_DiskDrive", "DeviceID", "IDE&A"), RecordList{});
}

TEST_F(DispatchTest, FindRecordByKeySearchesKeysOnly) {
    EXPECT_EQ(api.FindRecordByKey("QV_SATADiskDrive", "Model", "first"), RecordList{});
}

TEST_F(DispatchTest, FindRecordByKeyReturnsTheFirstOfTwoRecordsThatShareTheValue) {
    const RecordList found =
        api.FindRecordByKey("QV_SATADiskDrive", "SystemName", "host.example.org");
    EXPECT_EQ(ValuesOf(found, "Model"), Values{"first"});
}

TEST_F(DispatchTest, FindRecordByKeyFindsNothingWhenTheObjectPathIsNotUnique) {
    host.Answer(disksQuery, {DiskOf("A", "first"), DiskOf("A", "second")});
    EXPECT_EQ(api.FindRecordByKey("QV_SATADiskDrive", "DeviceID", "A"), RecordList{});
}

TEST_F(DispatchTest, FindRecordByKeyFindsNothingWhenObjectPathsDifferInLetterCaseOnly) {
    host.Answer(disksQuery, {DiskOf("A", "first"), DiskOf("a", "second")});
    EXPECT_EQ(api.FindRecordByKey("QV_SATADiskDrive", "DeviceID", "A"), RecordList{});
}

TEST_F(DispatchTest, FindRecordByKeyFindsNothingWhenTheQueryFails) {
    host.Fail(disksQuery);
    EXPECT_EQ(api.FindRecordByKey("QV_SATADiskDrive", "DeviceID", "IDE&A"), RecordList{});
}

}  // namespace
}  // namespace qv::test
