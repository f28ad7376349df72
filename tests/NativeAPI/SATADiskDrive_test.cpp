#include <gtest/gtest.h>

#include <string>

#include "tests/support/Builders.h"
#include "tests/support/ExpectedCatalogue.h"
#include "tests/support/Records.h"

namespace qv::test {
namespace {

using Values = std::vector<std::string>;

const Properties& disk = fullDisk;
const Properties medium{{"Tag", R"(\\.\PHYSICALDRIVE0)"}, {"SerialNumber", "SN1"}};

InstanceRecord FullDiskDrive(const std::string& className = "QV_SATADiskDrive") {
    return SpelledAs(className, ExpectedRecord("QV_SATADiskDrive"));
}

InstanceRecord Leaving(InstanceRecord record, std::string_view name) {
    std::erase_if(record.properties,
                  [name](const PropertyEntry& entry) { return entry.name == name; });
    return record;
}

class SATADiskDriveTest : public testing::Test, public Builders {
protected:
    SATADiskDriveTest() { host.Answer(mediaQuery, {medium}); }

    RecordList Build(std::vector<Properties> rows, std::uint32_t mode = mode::allProperties,
                     std::string_view path = {}) {
        host.Answer(disksQuery, std::move(rows));
        return api.getQV_SATADiskDrive({"QV_SATADiskDrive", mode, path});
    }

    // Returns the one value of a property of the one disk built from a row.
    std::string ValueOf(const Properties& row, std::string_view name) {
        const Values values = ValuesOf(Build({row}), name);
        EXPECT_EQ(values.size(), 1U) << name;
        return values.empty() ? "" : values.front();
    }

    void ExpectUnspecifiedFailure(const Properties& row) {
        try {
            Build({disk, row});
            ADD_FAILURE() << "no error was raised";
        } catch (const RequestError& error) {
            EXPECT_EQ(error.status(), Status::unspecifiedFailure);
        }
    }
};

TEST_F(SATADiskDriveTest, PublishesEveryPropertyInOrder) {
    EXPECT_EQ(Build({disk}), RecordList{FullDiskDrive()});
}

TEST_F(SATADiskDriveTest, AsksForDisksOnceAndForMediaOncePerKeptDisk) {
    Build({disk, With(disk, "InterfaceType", "USB"), disk});
    EXPECT_EQ(host.asked, InCimv2({disksQuery, mediaQuery, mediaQuery}));
}

TEST_F(SATADiskDriveTest, KeepsTheClassNameAsTheCallerSpelledIt) {
    host.Answer(disksQuery, {disk});
    EXPECT_EQ(api.getQV_SATADiskDrive({"QV_satadiskdrive", mode::allProperties, {}}),
              RecordList{FullDiskDrive("QV_satadiskdrive")});
}

TEST_F(SATADiskDriveTest, OfAnotherInterfaceTypeIsNotPublished) {
    EXPECT_EQ(
        Build({With(disk, "InterfaceType", "SCSI"), With(disk, "InterfaceType", "USB"),
               With(disk, "InterfaceType", "1394"), With(disk, "InterfaceType", std::monostate{}),
               Without(disk, "InterfaceType")}),
        RecordList{});
    EXPECT_EQ(host.asked, InCimv2({disksQuery}));
}

TEST_F(SATADiskDriveTest, OfInterfaceTypeIdeInLowerCaseIsNotPublished) {
    EXPECT_EQ(Build({With(disk, "InterfaceType", "ide")}), RecordList{});
}

TEST_F(SATADiskDriveTest, DeviceIdWithoutBackslashesIsUsedUnchanged) {
    EXPECT_EQ(ValueOf(With(disk, "PNPDeviceID", "IDE-DISK 7&1/2"), "DeviceID"), "IDE-DISK 7&1/2");
}

TEST_F(SATADiskDriveTest, DeviceIdIsEmptyWithoutASourceText) {
    EXPECT_EQ(ValueOf(Without(disk, "PNPDeviceID"), "DeviceID"), "");
}

TEST_F(SATADiskDriveTest, IsFoundByAPathThatDiffersInLetterCase) {
    EXPECT_EQ(Build({disk}, mode::allProperties,
                    R"(qv_satadiskdrive.deviceid="ide&diskx&5&1",SYSTEMNAME="HOST.EXAMPLE.ORG",)"
                    R"(CreationClassName="QV_SATADiskDrive",)"
                    R"(SystemCreationClassName="QV_WinComputerSystem")"),
              RecordList{FullDiskDrive()});
}

TEST_F(SATADiskDriveTest, PathKeepsEveryRowThatMatchesAndNoOther) {
    EXPECT_EQ(ValuesOf(Build({disk, With(disk, "PNPDeviceID", R"(IDE\OTHER\1)"),
                              With(disk, "Caption", "second")},
                             mode::allProperties, BuildObjectPath(FullDiskDrive())),
                       "Caption"),
              (Values{"the caption", "second"}));
    EXPECT_EQ(host.asked, InCimv2({disksQuery, mediaQuery, mediaQuery}));
}

TEST_F(SATADiskDriveTest, PathOfNoDiskFindsNothing) {
    EXPECT_EQ(Build({disk}, mode::allProperties, R"(QV_SATADiskDrive.DeviceID="IDE&DISKX&5&1")"),
              RecordList{});
    EXPECT_EQ(host.asked, InCimv2({disksQuery}));
}

class SATADiskDriveKeys : public SATADiskDriveTest,
                          public testing::WithParamInterface<std::uint32_t> {};

TEST_P(SATADiskDriveKeys, AreExactlyFourWithoutTheBitForAllProperties) {
    EXPECT_EQ(
        Build({disk}, GetParam()),
        RecordList{Record("QV_SATADiskDrive",
                          {Key("DeviceID", "IDE&DISKX&5&1"), Key("SystemName", "host.example.org"),
                           Key("CreationClassName", "QV_SATADiskDrive"),
                           Key("SystemCreationClassName", "QV_WinComputerSystem")})});
    EXPECT_EQ(host.asked, InCimv2({disksQuery}));
}

INSTANTIATE_TEST_SUITE_P(EachMode, SATADiskDriveKeys, testing::Values(mode::keysOnly, 0U, 8U),
                         [](const auto& mode) { return "Mode" + std::to_string(mode.param); });

TEST_F(SATADiskDriveTest, InKeysOnlyModeHasThreeKeysWithoutAHostName) {
    ForgetHostName();
    const RecordList records = Build({disk}, mode::keysOnly);
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(NamesOf(records[0]),
              (Values{"DeviceID", "CreationClassName", "SystemCreationClassName"}));
}

TEST_F(SATADiskDriveTest, LeavesSystemNameOutWithoutAHostName) {
    ForgetHostName();
    EXPECT_EQ(Build({disk}), RecordList{Leaving(FullDiskDrive(), "SystemName")});
}

TEST_F(SATADiskDriveTest, StatusPredFailGivesCode5AndTheText) {
    const auto row = With(disk, "Status", "Pred Fail");
    EXPECT_EQ(ValueOf(row, "OperationalStatus"), "5");
    EXPECT_EQ(ValueOf(row, "StatusDescriptions"), "Pred Fail");
}

TEST_F(SATADiskDriveTest, StatusOutsideTheMapGivesAnEmptyCodeBesideTheText) {
    const auto row = With(disk, "Status", "Starting");
    EXPECT_EQ(ValueOf(row, "OperationalStatus"), "");
    EXPECT_EQ(ValueOf(row, "StatusDescriptions"), "Starting");
}

TEST_F(SATADiskDriveTest, CapabilitiesArePublishedJoinedBesideTheirDescriptions) {
    const auto row = With(disk, "Capabilities", std::vector<std::uint16_t>{3, 4, 10});
    EXPECT_EQ(ValueOf(row, "Capabilities"), "3*-*4*-*10");
    EXPECT_EQ(ValueOf(row, "CapabilityDescriptions"),
              "Random Access*-*Supports Writing*-*SMART Notification");
}

TEST_F(SATADiskDriveTest, CapabilityOutsideTheMapIsPublishedAsUnknown) {
    const auto row = With(disk, "Capabilities", std::vector<std::int32_t>{13, 1});
    EXPECT_EQ(ValueOf(row, "Capabilities"), "13*-*1");
    EXPECT_EQ(ValueOf(row, "CapabilityDescriptions"), "Unknown*-*Other");
}

TEST_F(SATADiskDriveTest, WithoutCapabilitiesPublishesTwoEmptyTexts) {
    const RecordList records =
        Build({With(disk, "Capabilities", std::vector<std::uint16_t>{}),
               With(disk, "Capabilities", std::monostate{}), With(disk, "Capabilities", 3),
               Without(disk, "Capabilities")});
    EXPECT_EQ(ValuesOf(records, "Capabilities"), (Values{"", "", "", ""}));
    EXPECT_EQ(ValuesOf(records, "CapabilityDescriptions"), (Values{"", "", "", ""}));
}

TEST_F(SATADiskDriveTest, SerialNumberIsThatOfTheFirstOfTwoMediaRowsWithOneTag) {
    host.Answer(mediaQuery,
                {With(medium, "Tag", R"(\\.\PHYSICALDRIVE1)"),
                 With(medium, "SerialNumber", "first"), With(medium, "SerialNumber", "second")});
    EXPECT_EQ(ValueOf(disk, "SerialNumber"), "first");
}

TEST_F(SATADiskDriveTest, SerialNumberOfAMediaRowWithoutOneIsPublishedEmpty) {
    host.Answer(mediaQuery, {With(medium, "SerialNumber", std::monostate{})});
    EXPECT_EQ(ValueOf(disk, "SerialNumber"), "");
}

TEST_F(SATADiskDriveTest, SerialNumberIsLeftOutWhenNoMediaRowMatches) {
    host.Answer(mediaQuery, {With(medium, "Tag", R"(\\.\physicaldrive0)"),
                             With(medium, "Tag", std::monostate{})});
    EXPECT_EQ(Build({disk}), RecordList{Leaving(FullDiskDrive(), "SerialNumber")});
}

TEST_F(SATADiskDriveTest, SerialNumberIsLeftOutWhenTheMediaQueryFails) {
    host.Fail(mediaQuery);
    EXPECT_EQ(Build({disk}), RecordList{Leaving(FullDiskDrive(), "SerialNumber")});
    EXPECT_EQ(host.asked, InCimv2({disksQuery, mediaQuery}));
}

TEST_F(SATADiskDriveTest, NullDeviceIdComparedWithAMediaRowEndsTheRequest) {
    ExpectUnspecifiedFailure(With(disk, "DeviceID", std::monostate{}));
    ExpectUnspecifiedFailure(Without(disk, "DeviceID"));
}

TEST_F(SATADiskDriveTest, NullDeviceIdIsNoErrorWhereNothingIsComparedWithIt) {
    const auto row = With(disk, "DeviceID", std::monostate{});
    EXPECT_EQ(Build({row}, mode::keysOnly).size(), 1U);
    EXPECT_EQ(Build({With(row, "InterfaceType", "USB")}), RecordList{});
    host.Answer(mediaQuery, {});
    EXPECT_EQ(Build({row}), RecordList{Leaving(FullDiskDrive(), "SerialNumber")});
    host.Fail(mediaQuery);
    EXPECT_EQ(Build({row}), RecordList{Leaving(FullDiskDrive(), "SerialNumber")});
}

TEST_F(SATADiskDriveTest, MissingTextsArePublishedEmptyAndMissingNumbersAsZero) {
    EXPECT_EQ(Build({Properties{{"InterfaceType", "IDE"}, {"DeviceID", R"(\\.\PHYSICALDRIVE0)"}}}),
              RecordList{Record("QV_SATADiskDrive",
                                {
                                    Key("DeviceID", ""),
                                    Key("SystemName", "host.example.org"),
                                    Key("CreationClassName", "QV_SATADiskDrive"),
                                    Key("SystemCreationClassName", "QV_WinComputerSystem"),
                                    Text("Caption", ""),
                                    Text("Name", ""),
                                    Text("Description", ""),
                                    Text("ElementName", ""),
                                    Numbers("OperationalStatus", ""),
                                    Texts("StatusDescriptions", ""),
                                    Numbers("Capabilities", ""),
                                    Texts("CapabilityDescriptions", ""),
                                    Text("FirmwareRevision", ""),
                                    Number("Index", "0"),
                                    Text("InterfaceType", "IDE"),
                                    Text("Manufacturer", ""),
                                    Text("Model", ""),
                                    Number("Partitions", "0"),
                                    Number("SectorsPerTrack", "0"),
                                    Number("BytesPerSector", "0"),
                                    Text("SerialNumber", "SN1"),
                                    Text("Size", ""),
                                    Number("TracksPerCylinder", "0"),
                                    Text("TotalCylinders", ""),
                                    Number("TotalHeads", "0"),
                                    Text("TotalSectors", ""),
                                    Text("TotalTracks", ""),
                                })});
}

class SATADiskDriveNumbers : public SATADiskDriveTest,
                             public testing::WithParamInterface<const char*> {};

TEST_P(SATADiskDriveNumbers, ArePublishedAsSignedDecimals) {
    const char* const name = GetParam();
    EXPECT_EQ(ValueOf(With(disk, name, std::uint32_t{0xFFFFFFFF}), name), "-1");
    EXPECT_EQ(ValueOf(With(disk, name, std::uint32_t{0x80000000}), name), "-2147483648");
    EXPECT_EQ(ValueOf(With(disk, name, std::int32_t{2147483647}), name), "2147483647");
    EXPECT_EQ(ValueOf(With(disk, name, std::uint16_t{65535}), name), "65535");
    EXPECT_EQ(ValueOf(With(disk, name, std::int8_t{-1}), name), "-1");
    EXPECT_EQ(ValueOf(With(disk, name, "12"), name), "0");
}

INSTANTIATE_TEST_SUITE_P(EachProperty, SATADiskDriveNumbers,
                         testing::Values("Index", "Partitions", "SectorsPerTrack", "BytesPerSector",
                                         "TracksPerCylinder", "TotalHeads"),
                         [](const auto& name) { return name.param; });

class SATADiskDriveCountsOf64Bits : public SATADiskDriveTest,
                                    public testing::WithParamInterface<const char*> {};

TEST_P(SATADiskDriveCountsOf64Bits, AreTextAndNothingElse) {
    const char* const name = GetParam();
    EXPECT_EQ(ValueOf(With(disk, name, "18446744073709551615"), name), "18446744073709551615");
    EXPECT_EQ(ValueOf(With(disk, name, 12), name), "");
}

INSTANTIATE_TEST_SUITE_P(EachProperty, SATADiskDriveCountsOf64Bits,
                         testing::Values("Size", "TotalCylinders", "TotalSectors", "TotalTracks"),
                         [](const auto& name) { return name.param; });

TEST_F(SATADiskDriveTest, RecordsFollowTheOrderOfTheirRows) {
    EXPECT_EQ(ValuesOf(Build({With(disk, "PNPDeviceID", "Z"), With(disk, "InterfaceType", "USB"),
                              With(disk, "PNPDeviceID", "A")}),
                       "DeviceID"),
              (Values{"Z", "A"}));
}

TEST_F(SATADiskDriveTest, NoRowsGiveAnEmptyList) {
    EXPECT_EQ(Build({}), RecordList{});
}

TEST_F(SATADiskDriveTest, FailedQueryGivesAnEmptyList) {
    EXPECT_EQ(api.getQV_SATADiskDrive({"QV_SATADiskDrive", mode::allProperties, {}}), RecordList{});
    EXPECT_EQ(host.asked, InCimv2({disksQuery}));
}

}  // namespace
}  // namespace qv::test
