#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/support/Builders.h"
#include "tests/support/ExpectedCatalogue.h"
#include "tests/support/Records.h"

namespace qv::test {
namespace {

using Values = std::vector<std::string>;

const Properties controller{
    {"DeviceID", R"(PCI\VEN_8086&DEV_2922&SUBSYS_12345678&REV_02\3&1AB2&0&FA)"},
    {"Caption", "the caption"},
    {"Description", "the description"},
    {"Name", "the name"},
    {"ProtocolSupported", std::uint16_t{37}},
    {"Status", "OK"},
};
const std::string encodedId = "PCI&VEN_8086&DEV_2922&SUBSYS_12345678&REV_02&3&1AB2&0&FA";

InstanceRecord FullPortController(const std::string& className = "QV_SATAPortController") {
    return SpelledAs(className, ExpectedRecord("QV_SATAPortController"));
}

// Returns the value of a record's property, to be changed.
std::string& ValueIn(InstanceRecord& record, std::string_view name) {
    return std::ranges::find(record.properties, name, &PropertyEntry::name)->value;
}

class SATAPortControllerTest : public testing::Test, public Builders {
protected:
    RecordList Build(std::vector<Properties> rows, std::uint32_t mode = mode::allProperties,
                     std::string_view path = {}) {
        host.Answer(controllersQuery, std::move(rows));
        return api.getQV_SATAPortController({"QV_SATAPortController", mode, path});
    }

    // Returns the one value of a property of the one controller built from a row.
    std::string ValueOf(const Properties& row, std::string_view name) {
        const Values values = ValuesOf(Build({row}), name);
        EXPECT_EQ(values.size(), 1U) << name;
        return values.empty() ? "" : values.front();
    }
};

TEST_F(SATAPortControllerTest, PublishesEveryPropertyInOrder) {
    EXPECT_EQ(Build({controller}), RecordList{FullPortController()});
    EXPECT_EQ(host.asked, InCimv2({controllersQuery}));
}

TEST_F(SATAPortControllerTest, KeepsTheClassNameAsTheCallerSpelledIt) {
    host.Answer(controllersQuery, {controller});
    EXPECT_EQ(api.getQV_SATAPortController({"qv_sataPORTcontroller", mode::allProperties, {}}),
              RecordList{FullPortController("qv_sataPORTcontroller")});
}

class SATAPortControllerKeys : public SATAPortControllerTest,
                               public testing::WithParamInterface<std::uint32_t> {};

TEST_P(SATAPortControllerKeys, AreExactlyFourWithoutTheBitForAllProperties) {
    const RecordList records = Build({controller}, GetParam());
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(NamesOf(records[0]),
              (Values{"SystemName", "CreationClassName", "SystemCreationClassName", "DeviceID"}));
}

INSTANTIATE_TEST_SUITE_P(EachMode, SATAPortControllerKeys, testing::Values(mode::keysOnly, 0U, 8U),
                         [](const auto& mode) { return "Mode" + std::to_string(mode.param); });

TEST_F(SATAPortControllerTest, LeavesSystemNameOutWithoutAHostName) {
    ForgetHostName();
    InstanceRecord expected = FullPortController();
    expected.properties.erase(expected.properties.begin());
    EXPECT_EQ(Build({controller}), RecordList{expected});
}

TEST_F(SATAPortControllerTest, IsNotPublishedWithoutAPciRevision) {
    EXPECT_EQ(Build({With(controller, "DeviceID", R"(ROOT\IDE\0000)"),
                     With(controller, "DeviceID", R"(PCI\VEN_8086&DEV_2922\3&1)"),
                     With(controller, "DeviceID", R"(PCI\VEN_8086&rev_02\3&1)")}),
              RecordList{});
}

TEST_F(SATAPortControllerTest, IsNotPublishedForTheChannelsOfAController) {
    const RecordList records =
        Build({With(controller, "DeviceID", R"(PCIIDE\IDECHANNEL\4&2E6E9E8&0&0)"), controller,
               With(controller, "DeviceID", R"(PCIIDE\IDECHANNEL\4&2E6E9E8&0&1)")});
    EXPECT_EQ(ValuesOf(records, "DeviceID"), Values{encodedId});
}

TEST_F(SATAPortControllerTest, IsNotPublishedWithoutATextDeviceId) {
    EXPECT_EQ(
        Build({Without(controller, "DeviceID"), With(controller, "DeviceID", std::monostate{}),
               With(controller, "DeviceID", 7), With(controller, "DeviceID", "")}),
        RecordList{});
}

TEST_F(SATAPortControllerTest, VersionRunsToTheEndWhenNoBackslashFollowsTheRevision) {
    EXPECT_EQ(ValueOf(With(controller, "DeviceID", R"(PCI\VEN_8086&DEV_2922&REV_1A)"),
                      "ControllerVersion"),
              "1A");
}

TEST_F(SATAPortControllerTest, VersionComesFromTheFirstRevision) {
    EXPECT_EQ(ValueOf(With(controller, "DeviceID", R"(PCI\VEN_1&REV_03\X&REV_04\1)"),
                      "ControllerVersion"),
              "03");
}

TEST_F(SATAPortControllerTest, VersionKeepsWhatFollowsTheFirstUnderscore) {
    EXPECT_EQ(ValueOf(With(controller, "DeviceID", R"(PCI\VEN_1&REV_0_3\X)"), "ControllerVersion"),
              "0_3");
}

TEST_F(SATAPortControllerTest, IsFoundByAPathWhoseDeviceIdDiffersInLetterCase) {
    EXPECT_EQ(Build({controller}, mode::allProperties,
                    R"(QV_SATAPortController.SystemName="HOST.example.org",)"
                    R"(CreationClassName="QV_SATAPortController",)"
                    R"(SystemCreationClassName="QV_WinComputerSystem",)"
                    R"(DeviceID="pci&ven_8086&dev_2922&subsys_12345678&rev_02&3&1ab2&0&fa")"),
              RecordList{FullPortController()});
}

TEST_F(SATAPortControllerTest, PathKeepsEveryRowThatMatchesAndNoOther) {
    const std::string path = BuildObjectPath(FullPortController());
    EXPECT_EQ(Build({controller, With(controller, "DeviceID", R"(PCI\VEN_1&REV_01\2)"),
                     With(controller, "Caption", "second")},
                    mode::allProperties, path)
                  .size(),
              2U);
    EXPECT_EQ(ValuesOf(Build({controller, With(controller, "DeviceID", R"(PCI\VEN_1&REV_01\2)"),
                              With(controller, "Caption", "second")},
                             mode::allProperties, path),
                       "Caption"),
              (Values{"the caption", "second"}));
}

TEST_F(SATAPortControllerTest, PathWithKeysInAnotherOrderFindsNothing) {
    EXPECT_EQ(
        Build({controller}, mode::allProperties,
              R"(QV_SATAPortController.CreationClassName="QV_SATAPortController",DeviceID=")" +
                  encodedId +
                  R"(",SystemCreationClassName="QV_WinComputerSystem",)"
                  R"(SystemName="host.example.org")"),
        RecordList{});
}

TEST_F(SATAPortControllerTest, RecordsFollowTheOrderOfTheirRows) {
    EXPECT_EQ(ValuesOf(Build({With(controller, "DeviceID", R"(PCI\Z&REV_01\2)"),
                              With(controller, "DeviceID", R"(ROOT\SKIPPED)"),
                              With(controller, "DeviceID", R"(PCI\A&REV_01\2)")}),
                       "DeviceID"),
              (Values{"PCI&Z&REV_01&2", "PCI&A&REV_01&2"}));
}

TEST_F(SATAPortControllerTest, MissingSourceTextsArePublishedEmpty) {
    InstanceRecord expected = FullPortController();
    ValueIn(expected, "Caption") = "";
    ValueIn(expected, "Name") = "";
    ValueIn(expected, "Description") = "";
    ValueIn(expected, "ElementName") = "";
    ValueIn(expected, "OperationalStatus") = "";
    ValueIn(expected, "StatusDescriptions") = "";
    ValueIn(expected, "ProtocolSupported") = "0";
    EXPECT_EQ(Build({Properties{{"DeviceID", controller.at("DeviceID")}}}), RecordList{expected});
}

TEST_F(SATAPortControllerTest, NullCaptionIsPublishedEmptyAndNotAbsent) {
    EXPECT_EQ(ValueOf(With(controller, "Caption", std::monostate{}), "Caption"), "");
}

TEST_F(SATAPortControllerTest, ProtocolSupportedIsReadAs16UnsignedBits) {
    const auto protocolOf = [this](platform::Value value) {
        return ValueOf(With(controller, "ProtocolSupported", std::move(value)),
                       "ProtocolSupported");
    };
    EXPECT_EQ(protocolOf(std::int32_t{37}), "37");
    EXPECT_EQ(protocolOf(std::int8_t{-1}), "65535");
    EXPECT_EQ(protocolOf(std::int32_t{65536 + 5}), "5");
    EXPECT_EQ(protocolOf(std::uint32_t{0xFFFFFFFF}), "65535");
}

TEST_F(SATAPortControllerTest, ProtocolSupportedIsZeroWithoutASourceNumber) {
    EXPECT_EQ(ValueOf(Without(controller, "ProtocolSupported"), "ProtocolSupported"), "0");
    EXPECT_EQ(ValueOf(With(controller, "ProtocolSupported", "37"), "ProtocolSupported"), "0");
}

TEST_F(SATAPortControllerTest, StatusOutsideTheMapGivesAnEmptyCodeBesideTheText) {
    const auto row = With(controller, "Status", "Starting");
    EXPECT_EQ(ValueOf(row, "OperationalStatus"), "");
    EXPECT_EQ(ValueOf(row, "StatusDescriptions"), "Starting");
}

TEST_F(SATAPortControllerTest, NoRowsGiveAnEmptyList) {
    EXPECT_EQ(Build({}), RecordList{});
}

TEST_F(SATAPortControllerTest, FailedQueryGivesAnEmptyList) {
    EXPECT_EQ(api.getQV_SATAPortController({"QV_SATAPortController", mode::allProperties, {}}),
              RecordList{});
    EXPECT_EQ(host.asked, InCimv2({controllersQuery}));
}

}  // namespace
}  // namespace qv::test
