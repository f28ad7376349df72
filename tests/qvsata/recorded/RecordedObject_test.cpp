#include "qvsata/recorded/RecordedObject.h"

#include <gmock/gmock.h>

#include "tests/support/RecordedAnswers.h"

namespace qv::test {
namespace {

using namespace service;
using testing::ElementsAre;

// A row as a query on its host returns it.
class Answered {
public:
    explicit Answered(ObjectPtr object) : object_(std::move(object)) {}

    std::optional<CimValue> Get(std::string_view name) const { return ValueOf(*object_, name); }
    std::vector<std::string> PropertyNames() const { return object_->Names(); }

private:
    ObjectPtr object_;
};

Answered ObjectOf(const std::string& className, RowProperties properties,
                  std::string_view nameSpace = R"(root\CIMv2)",
                  const std::string& selection = "*") {
    RecordedHost host({"SRV01", "", "", ""});
    host.AddRow("root/cimv2", className, std::move(properties));
    return Answered(
        Ask(host, nameSpace, "SELECT " + selection + " FROM " + className).objects.at(0));
}

std::string RelPathOf(const std::string& className, RowProperties properties) {
    const auto path = ObjectOf(className, std::move(properties)).Get("__RELPATH");
    return path && std::holds_alternative<std::string>(*path) ? std::get<std::string>(*path)
                                                              : "none";
}

TEST(RecordedObject, ReadsPropertiesWithoutRegardToCase) {
    const Answered disk = ObjectOf("Win32_DiskDrive", {{"Size", "5"}, {"Status", {}}});
    EXPECT_EQ(disk.Get("SIZE"), CimValue{"5"});
    EXPECT_EQ(disk.Get("status"), CimValue{});
    EXPECT_EQ(disk.Get("Model"), std::nullopt);
}

TEST(RecordedObject, OutlivesItsHost) {
    EXPECT_EQ(ObjectOf("Win32_DiskDrive", {{"Size", "5"}}).Get("__SERVER"), CimValue{"SRV01"});
}

TEST(RecordedObject, DerivesItsSystemProperties) {
    const Answered disk = ObjectOf("Win32_DiskDrive", {{"DeviceID", R"(\\.\PHYSICALDRIVE0)"}});
    EXPECT_EQ(disk.Get("__class"), CimValue{"Win32_DiskDrive"});
    EXPECT_EQ(disk.Get("__SERVER"), CimValue{"SRV01"});
    EXPECT_EQ(disk.Get("__NAMESPACE"), CimValue{R"(root\CIMv2)"});
    EXPECT_EQ(disk.Get("__RELPATH"),
              CimValue{R"(Win32_DiskDrive.DeviceID="\\\\.\\PHYSICALDRIVE0")"});
    EXPECT_EQ(disk.Get("__PATH"),
              CimValue{R"(\\SRV01\root\CIMv2:Win32_DiskDrive.DeviceID="\\\\.\\PHYSICALDRIVE0")"});
}

TEST(RecordedObject, SpellsTheNamespaceAsTheConnectionDid) {
    const Answered disk = ObjectOf("Win32_DiskDrive", {{"DeviceID", "x"}}, R"(\\.\ROOT/cimV2)");
    EXPECT_EQ(disk.Get("__NAMESPACE"), CimValue{R"(ROOT\cimV2)"});
    EXPECT_EQ(disk.Get("__PATH"), CimValue{R"(\\SRV01\ROOT\cimV2:Win32_DiskDrive.DeviceID="x")"});
}

TEST(RecordedObject, KnowsTheKeyOfEachSourceClass) {
    const RowProperties row = {
        {"Name", "n"}, {"Tag", "t"}, {"InstanceName", "i"}, {"DeviceID", "d\""}};
    EXPECT_EQ(RelPathOf("Win32_IDEController", row), R"(Win32_IDEController.DeviceID="d\"")");
    EXPECT_EQ(RelPathOf("Win32_DiskPartition", row), R"(Win32_DiskPartition.DeviceID="d\"")");
    EXPECT_EQ(RelPathOf("Win32_PnPEntity", row), R"(Win32_PnPEntity.DeviceID="d\"")");
    EXPECT_EQ(RelPathOf("Win32_PhysicalMedia", row), R"(Win32_PhysicalMedia.Tag="t")");
    EXPECT_EQ(RelPathOf("Win32_SystemDriver", row), R"(Win32_SystemDriver.Name="n")");
    EXPECT_EQ(RelPathOf("MSStorageDriver_FailurePredictStatus", row),
              R"(MSStorageDriver_FailurePredictStatus.InstanceName="i")");
}

TEST(RecordedObject, HasBothReferencesOfAnAssociationAsKeysInAlphabeticalOrder) {
    EXPECT_EQ(RelPathOf("Win32_SystemDriverPNPEntity",
                        {{"Dependent", R"(\\S\root\cimv2:Win32_SystemDriver.Name="disk")"},
                         {"AccessState", {}},
                         {"Antecedent", R"(\\S\root\cimv2:Win32_PnPEntity.DeviceID="A\\B")"}}),
              R"(Win32_SystemDriverPNPEntity.)"
              R"(Antecedent="\\\\S\\root\\cimv2:Win32_PnPEntity.DeviceID=\"A\\\\B\"",)"
              R"(Dependent="\\\\S\\root\\cimv2:Win32_SystemDriver.Name=\"disk\"")");
}

TEST(RecordedObject, HasNoPathWithoutAKey) {
    EXPECT_EQ(RelPathOf("Win32_DiskDrive", {{"DeviceID", {}}}), "none");
    EXPECT_EQ(RelPathOf("Win32_DiskDrive", {}), "none");
    EXPECT_EQ(RelPathOf("Win32_Other", {{"Name", "n"}}), "none");
    EXPECT_EQ(ObjectOf("Win32_DiskDrive", {}).Get("__PATH"), CimValue{});
}

TEST(RecordedObject, PrefersTheSystemPropertiesOfTheRow) {
    const Answered disk = ObjectOf(
        "Win32_DiskDrive", {{"DeviceID", "x"}, {"__CLASS", "Other"}, {"__path", CimValue{}}});
    EXPECT_EQ(disk.Get("__CLASS"), CimValue{"Other"});
    EXPECT_EQ(disk.Get("__PATH"), CimValue{});
    EXPECT_EQ(disk.Get("__RELPATH"), CimValue{R"(Win32_DiskDrive.DeviceID="x")"});
}

TEST(RecordedObject, ListsItsPropertiesWithoutSystemOnes) {
    EXPECT_THAT(ObjectOf("C", {{"B", 1}, {"__PATH", "p"}, {"A", {}}}).PropertyNames(),
                ElementsAre("B", "A"));
}

TEST(RecordedObject, HasOnlyTheSelectedProperties) {
    const Answered disk =
        ObjectOf("Win32_DiskDrive", {{"DeviceID", "x"}, {"Size", "5"}, {"Model", "m"}},
                 "root/cimv2", "MODEL,size");
    EXPECT_THAT(disk.PropertyNames(), ElementsAre("Size", "Model"));
    EXPECT_EQ(disk.Get("Size"), CimValue{"5"});
    EXPECT_EQ(disk.Get("DeviceID"), std::nullopt);
    EXPECT_EQ(disk.Get("__RELPATH"), CimValue{R"(Win32_DiskDrive.DeviceID="x")"});
}

TEST(RecordedObject, TypeOfGivesTheTypeOfARecordedValue) {
    EXPECT_EQ(TypeOf(CimValue{}), CimType::string);
    EXPECT_EQ(TypeOf(CimValue{"x"}), CimType::string);
    EXPECT_EQ(TypeOf(CimValue{std::int64_t{1}}), CimType::sint32);
    EXPECT_EQ(TypeOf(CimValue{true}), CimType::boolean);
    EXPECT_EQ(TypeOf(CimValue{0.5}), CimType::real64);
    EXPECT_EQ(TypeOf(CimValue{std::vector<std::int64_t>{1}}), CimType::sint32);
    EXPECT_EQ(TypeOf(CimValue{std::vector<std::string>{"x"}}), CimType::string);
}

TEST(RecordedObject, IsArrayTellsArraysFromSingleValues) {
    EXPECT_TRUE(IsArray(CimValue{std::vector<std::int64_t>{}}));
    EXPECT_TRUE(IsArray(CimValue{std::vector<bool>{}}));
    EXPECT_TRUE(IsArray(CimValue{std::vector<std::string>{}}));
    EXPECT_FALSE(IsArray(CimValue{"x"}));
    EXPECT_FALSE(IsArray(CimValue{}));
}

}  // namespace
}  // namespace qv::test
