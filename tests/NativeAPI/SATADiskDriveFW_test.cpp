#include <gtest/gtest.h>

#include "tests/support/Builders.h"
#include "tests/support/ExpectedCatalogue.h"
#include "tests/support/Records.h"

namespace qv::test {
namespace {

using Values = std::vector<std::string>;

constexpr const char* diskDriveFWClass = "QV_SATADiskDriveFW";

class SATADiskDriveFWTest : public testing::Test, public Builders {
protected:
    SATADiskDriveFWTest() {
        host.Answer(disksQuery, {Disk(diskId)});
        host.Answer(mediaQuery, {Media(R"(\\.\PHYSICALDRIVE1)", "other"), Media(drive0, "SN1"),
                                 Media(drive0, "SN2")});
    }
};

TEST_F(SATADiskDriveFWTest, HasItsPropertiesInOrder) {
    EXPECT_EQ(All(diskDriveFWClass), RecordList{ExpectedRecord(diskDriveFWClass)});
}

TEST_F(SATADiskDriveFWTest, AsksForTheMediaOnceForEachKeptDisk) {
    host.Answer(disksQuery, {Disk("D1"), With(Disk("S"), {{"InterfaceType", "SCSI"}}), Disk("D2")});
    All(diskDriveFWClass);
    EXPECT_EQ(host.asked, InCimv2({disksQuery, mediaQuery, mediaQuery}));
}

TEST_F(SATADiskDriveFWTest, DoesNotAskForTheMediaWhenOnlyKeysAreAskedFor) {
    EXPECT_EQ(Keys(diskDriveFWClass),
              RecordList{Record(diskDriveFWClass, {Key("InstanceID", diskKey)})});
    EXPECT_EQ(host.asked, InCimv2({disksQuery}));
}

TEST_F(SATADiskDriveFWTest, IsNoneWhenTheDisksCannotBeHad) {
    host.Fail(disksQuery);
    EXPECT_EQ(All(diskDriveFWClass), RecordList{});
}

TEST_F(SATADiskDriveFWTest, HasNoSerialNumberWhenTheMediaCannotBeHadOrNoneIsTheDisks) {
    host.Answer(mediaQuery, {Media(R"(\\.\physicaldrive0)", "x")});
    EXPECT_EQ(ValuesOf(All(diskDriveFWClass), "SerialNumber"), Values{});
    host.Fail(mediaQuery);
    EXPECT_EQ(ValuesOf(All(diskDriveFWClass), "SerialNumber"), Values{});
    EXPECT_EQ(ValuesOf(All(diskDriveFWClass), "VersionString"), Values{"fw 1.0"});
}

TEST_F(SATADiskDriveFWTest, ANullDeviceIdComparedWithAMediaRowEndsTheRequest) {
    host.Answer(disksQuery, {With(Disk(diskId), {{"DeviceID", std::monostate{}}})});
    EXPECT_THROW(All(diskDriveFWClass), RequestError);
    EXPECT_NO_THROW(Keys(diskDriveFWClass));
}

TEST_F(SATADiskDriveFWTest, HasTheKeyOfTheDisksOwnInstance) {
    host.Answer(disksQuery, {Disk(diskId), Disk("no backslash"), Disk(R"(a\\b)")});
    EXPECT_EQ(ValuesOf(Keys(diskDriveFWClass), "InstanceID"),
              ValuesOf(Keys("QV_SATADiskDrive"), "DeviceID"));
    EXPECT_EQ(ValuesOf(Keys(diskDriveFWClass), "InstanceID"),
              (Values{diskKey, "no backslash", "a&&b"}));
}

TEST_F(SATADiskDriveFWTest, OfADiskWithoutModelHasAnEmptyNameAndABareIdentity) {
    host.Answer(disksQuery, {With(Disk(diskId), {{"Model", std::monostate{}}}),
                             With(Disk(diskId), {{"Model", ""}})});
    EXPECT_EQ(ValuesOf(All(diskDriveFWClass), "ElementName"), (Values{"", ""}));
    EXPECT_EQ(ValuesOf(All(diskDriveFWClass), "IdentityInfoValue"), (Values{"QVQ:", "QVQ:"}));
}

TEST_F(SATADiskDriveFWTest, IsFoundByItsPathInAnyLetterCase) {
    EXPECT_EQ(At(diskDriveFWClass, "qv_satadiskdrivefw.instanceid=\"" + diskKey + "\""),
              All(diskDriveFWClass));
    EXPECT_EQ(At(diskDriveFWClass, R"(QV_SATADiskDriveFW.InstanceID="x")"), RecordList{});
}

TEST_F(SATADiskDriveFWTest, IsOnlyOfIdeDisks) {
    host.Answer(disksQuery, {With(Disk("S"), {{"InterfaceType", "SCSI"}}),
                             Without(Disk("N"), "InterfaceType")});
    EXPECT_EQ(All(diskDriveFWClass), RecordList{});
}

}  // namespace
}  // namespace qv::test
