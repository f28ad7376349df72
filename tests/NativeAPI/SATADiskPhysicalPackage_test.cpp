#include <gtest/gtest.h>

#include "tests/support/Builders.h"
#include "tests/support/ExpectedCatalogue.h"
#include "tests/support/Records.h"

namespace qv::test {
namespace {

using Values = std::vector<std::string>;

constexpr const char* diskPhysicalPackageClass = "QV_SATADiskPhysicalPackage";

class SATADiskPhysicalPackageTest : public testing::Test, public Builders {
protected:
    SATADiskPhysicalPackageTest() {
        host.Answer(disksQuery, {Disk(diskId)});
        host.Answer(mediaQuery, {Media(drive0, "SN1"), Media(drive0, "SN2")});
    }
};

TEST_F(SATADiskPhysicalPackageTest, HasItsPropertiesInOrder) {
    EXPECT_EQ(All(diskPhysicalPackageClass), RecordList{ExpectedRecord(diskPhysicalPackageClass)});
}

TEST_F(SATADiskPhysicalPackageTest, AsksForTheMediaOnceForEachKeptDisk) {
    host.Answer(disksQuery, {Disk("D1"), With(Disk("S"), {{"InterfaceType", "SCSI"}}), Disk("D2")});
    All(diskPhysicalPackageClass);
    EXPECT_EQ(host.asked, InCimv2({disksQuery, mediaQuery, mediaQuery}));
}

TEST_F(SATADiskPhysicalPackageTest, CarriesOnlyKeysWhenOnlyKeysAreAskedFor) {
    EXPECT_EQ(Keys("qv_satadiskphysicalpackage"),
              RecordList{Record(
                  "qv_satadiskphysicalpackage",
                  {Key("CreationClassName", "qv_satadiskphysicalpackage"), Key("Tag", diskKey)})});
    EXPECT_EQ(host.asked, InCimv2({disksQuery}));
}

TEST_F(SATADiskPhysicalPackageTest, IsNoneWhenTheDisksCannotBeHad) {
    host.Fail(disksQuery);
    EXPECT_EQ(All(diskPhysicalPackageClass), RecordList{});
}

TEST_F(SATADiskPhysicalPackageTest, HasNeitherSerialNumberNorNameWithoutAMediaRow) {
    const Values names{"CreationClassName", "Tag",   "ElementName",
                       "Manufacturer",      "Model", "Version"};
    host.Answer(mediaQuery, {Media(R"(\\.\PHYSICALDRIVE1)", "x")});
    EXPECT_EQ(NamesOf(All(diskPhysicalPackageClass).at(0)), names);
    host.Fail(mediaQuery);
    EXPECT_EQ(NamesOf(All(diskPhysicalPackageClass).at(0)), names);
}

TEST_F(SATADiskPhysicalPackageTest, AMediaRowWithoutSerialNumberGivesAnEmptyOne) {
    host.Answer(mediaQuery, {{{"Tag", drive0}, {"SerialNumber", std::monostate{}}}});
    EXPECT_EQ(ValuesOf(All(diskPhysicalPackageClass), "SerialNumber"), Values{""});
    EXPECT_EQ(ValuesOf(All(diskPhysicalPackageClass), "Name"), Values{drive0});
}

TEST_F(SATADiskPhysicalPackageTest, ANullDeviceIdComparedWithAMediaRowEndsTheRequest) {
    host.Answer(disksQuery, {Without(Disk(diskId), "DeviceID")});
    EXPECT_THROW(All(diskPhysicalPackageClass), RequestError);
    host.Fail(mediaQuery);
    EXPECT_NO_THROW(All(diskPhysicalPackageClass));
}

TEST_F(SATADiskPhysicalPackageTest, IsFoundByItsPathInAnyLetterCase) {
    const std::string path =
        R"(qv_satadiskphysicalpackage.CREATIONCLASSNAME="QV_SATADiskPhysicalPackage",Tag=")" +
        diskKey + "\"";
    EXPECT_EQ(At(diskPhysicalPackageClass, path), All(diskPhysicalPackageClass));
    EXPECT_EQ(At(diskPhysicalPackageClass, R"(QV_SATADiskPhysicalPackage.Tag="x")"), RecordList{});
}

TEST_F(SATADiskPhysicalPackageTest, MissingTextsAreEmptyTexts) {
    host.Answer(disksQuery, {{{"InterfaceType", "IDE"}, {"DeviceID", drive0}}});
    EXPECT_EQ(ValuesOf(All(diskPhysicalPackageClass), "Tag"), Values{""});
    EXPECT_EQ(ValuesOf(All(diskPhysicalPackageClass), "ElementName"), Values{""});
    EXPECT_EQ(ValuesOf(All(diskPhysicalPackageClass), "Version"), Values{""});
}

TEST_F(SATADiskPhysicalPackageTest, HasTheKeyOfTheDisksOwnInstance) {
    EXPECT_EQ(ValuesOf(Keys(diskPhysicalPackageClass), "Tag"),
              ValuesOf(Keys("QV_SATADiskDrive"), "DeviceID"));
}

TEST_F(SATADiskPhysicalPackageTest, IsOneForEachIdeDiskInSourceOrder) {
    host.Answer(disksQuery, {Disk("D2"), With(Disk("i"), {{"InterfaceType", "ide"}}), Disk("D1")});
    EXPECT_EQ(ValuesOf(Keys(diskPhysicalPackageClass), "Tag"), (Values{"D2", "D1"}));
}

}  // namespace
}  // namespace qv::test
