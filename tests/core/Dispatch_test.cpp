#include <algorithm>
#include <string>

#include "catalogue/Classes.h"
#include "catalogue/Hierarchy.h"
#include "tests/core/BuilderTest.h"

namespace qv {
namespace {

using test::NamesOf;
using test::ValuesOf;
using test::With;
using Values = std::vector<std::string>;

const std::string diskQuery = "SELECT * FROM Win32_DiskDrive";
const std::string mediaQuery = "SELECT * FROM Win32_PhysicalMedia";
const std::string diskQueryAsked = R"(root\CIMv2: )" + diskQuery;
const std::string mediaQueryAsked = R"(root\CIMv2: )" + mediaQuery;

test::Properties Disk(const char* id, const char* model) {
    return {{"InterfaceType", "IDE"},
            {"PNPDeviceID", id},
            {"DeviceID", R"(\\.\PHYSICALDRIVE0)"},
            {"Model", model}};
}

class Dispatch : public test::BuilderTest {
protected:
    Dispatch() {
        host.Answer(diskQuery, {Disk(R"(IDE\A)", "first"), Disk(R"(IDE\B)", "second")});
        host.Answer(mediaQuery, {});
    }
};

TEST_F(Dispatch, TakesTheClassNameInAnyCaseAndRecordsCarryItAsSpelled) {
    const RecordList records = api.BuildInstances("qv_sataDISKdrive", mode::allProperties, {});
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].className, "qv_sataDISKdrive");
    EXPECT_EQ(ValuesOf(records, "CreationClassName"),
              (Values{"qv_sataDISKdrive", "qv_sataDISKdrive"}));
}

TEST_F(Dispatch, SuperclassesAndUnknownNamesGiveEmptyLists) {
    for (const char* name : {"CIM_DiskDrive", "QV_SoftwareIdentity", "CIM_LogicalDevice",
                             "QV_ComputerSystem", "QV_SATADiskDriveX", "QV_SATADisk", ""}) {
        EXPECT_EQ(api.BuildInstances(name, mode::allProperties, {}), RecordList{}) << name;
    }
    EXPECT_TRUE(host.asked.empty());
}

TEST_F(Dispatch, ServesNoNodeOfTheHierarchyThatIsNotPublished) {
    for (const ClassNode& node : ClassHierarchy()) {
        const bool published = std::ranges::any_of(
            PublishedClasses(), [&](const PublishedClass& one) { return one.name == node.name; });
        if (!published) {
            EXPECT_EQ(api.BuildAllInstances(node.name, mode::allProperties), RecordList{})
                << node.name;
        }
    }
    EXPECT_TRUE(host.asked.empty());
}

TEST_F(Dispatch, EachClassIsBuiltFromItsOwnSource) {
    api.BuildAllInstances("QV_SATAPortController", mode::keysOnly);
    api.BuildAllInstances("QV_SATADiskDrive", mode::keysOnly);
    api.BuildAllInstances("QV_WinComputerSystem", mode::keysOnly);
    EXPECT_EQ(host.asked,
              (Values{R"(root\CIMv2: SELECT * FROM Win32_IDEController)", diskQueryAsked}));
}

TEST_F(Dispatch, HandsModeAndPathToTheBuilder) {
    const RecordList all = api.BuildInstances("QV_SATADiskDrive", mode::keysOnly, {});
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(NamesOf(all[0]).size(), 4U);
    const RecordList one =
        api.BuildInstances("QV_SATADiskDrive", mode::foundByKey, BuildObjectPath(all[1]));
    EXPECT_EQ(ValuesOf(one, "Model"), Values{"second"});
}

TEST_F(Dispatch, BuildAllInstancesTakesNoPath) {
    EXPECT_EQ(api.BuildAllInstances("QV_SATADiskDrive", mode::allProperties),
              api.BuildInstances("QV_SATADiskDrive", mode::allProperties, {}));
}

TEST_F(Dispatch, NothingIsKeptBetweenRequests) {
    api.BuildAllInstances("QV_SATADiskDrive", mode::keysOnly);
    host.Answer(diskQuery, {});
    EXPECT_EQ(api.BuildAllInstances("QV_SATADiskDrive", mode::keysOnly), RecordList{});
}

TEST_F(Dispatch, LetsAnErrorOfABuilderThrough) {
    host.Answer(diskQuery, {With(Disk("A", "x"), "DeviceID", std::monostate{})});
    host.Answer(mediaQuery, {test::Properties{{"Tag", "T"}}});
    EXPECT_THROW(api.BuildAllInstances("QV_SATADiskDrive", mode::allProperties), RequestError);
    EXPECT_THROW(api.FindRecordByKey("QV_SATADiskDrive", "DeviceID", "A"), RequestError);
}

using FindRecordByKey = Dispatch;

TEST_F(FindRecordByKey, ReturnsTheFullRecordOfTheMatch) {
    const RecordList found = api.FindRecordByKey("QV_SATADiskDrive", "DeviceID", "IDE&B");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(ValuesOf(found, "DeviceID"), Values{"IDE&B"});
    EXPECT_EQ(ValuesOf(found, "Model"), Values{"second"});
}

TEST_F(FindRecordByKey, ReadsKeysOfAllAndThenTheFullRecordOfOne) {
    api.FindRecordByKey("QV_SATADiskDrive", "DeviceID", "IDE&A");
    EXPECT_EQ(host.asked, (Values{diskQueryAsked, diskQueryAsked, mediaQueryAsked}));
}

TEST_F(FindRecordByKey, FindsNothingForAValueThatDiffersInLetterCase) {
    EXPECT_EQ(api.FindRecordByKey("QV_SATADiskDrive", "DeviceID", "ide&a"), RecordList{});
    EXPECT_EQ(host.asked, Values{diskQueryAsked});
}

TEST_F(FindRecordByKey, FindsNothingForAnotherValueNameOrClass) {
    EXPECT_EQ(api.FindRecordByKey("QV_SATADiskDrive", "DeviceID", "IDE&C"), RecordList{});
    EXPECT_EQ(api.FindRecordByKey("QV_SATADiskDrive", "deviceid", "IDE&A"), RecordList{});
    EXPECT_EQ(api.FindRecordByKey("CIM_DiskDrive", "DeviceID", "IDE&A"), RecordList{});
}

TEST_F(FindRecordByKey, SearchesKeysOnly) {
    EXPECT_EQ(api.FindRecordByKey("QV_SATADiskDrive", "Model", "first"), RecordList{});
}

TEST_F(FindRecordByKey, ReturnsTheFirstOfTwoRecordsThatShareTheValue) {
    const RecordList found =
        api.FindRecordByKey("QV_SATADiskDrive", "SystemName", "host.example.org");
    EXPECT_EQ(ValuesOf(found, "Model"), Values{"first"});
}

TEST_F(FindRecordByKey, FindsNothingWhenTheObjectPathIsNotUnique) {
    host.Answer(diskQuery, {Disk("A", "first"), Disk("A", "second")});
    EXPECT_EQ(api.FindRecordByKey("QV_SATADiskDrive", "DeviceID", "A"), RecordList{});
}

TEST_F(FindRecordByKey, FindsNothingWhenObjectPathsDifferInLetterCaseOnly) {
    host.Answer(diskQuery, {Disk("A", "first"), Disk("a", "second")});
    EXPECT_EQ(api.FindRecordByKey("QV_SATADiskDrive", "DeviceID", "A"), RecordList{});
}

TEST_F(FindRecordByKey, FindsNothingWhenTheQueryFails) {
    host.Fail(diskQuery);
    EXPECT_EQ(api.FindRecordByKey("QV_SATADiskDrive", "DeviceID", "IDE&A"), RecordList{});
}

}  // namespace
}  // namespace qv
