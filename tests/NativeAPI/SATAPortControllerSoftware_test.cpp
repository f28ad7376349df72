#include <gtest/gtest.h>

#include "source/Text.h"
#include "tests/support/Builders.h"
#include "tests/support/ExpectedCatalogue.h"
#include "tests/support/Records.h"

namespace qv::test {
namespace {

using Values = std::vector<std::string>;

constexpr const char* bios = "QV_SATAPortControllerBIOS";
constexpr const char* firmware = "QV_SATAPortControllerFW";
constexpr const char* driver = "QV_SATAPortControllerDriver";

class SATAPortControllerSoftwareTest : public testing::Test, public Builders {
public:
    // Sets the driver of the host's one controller.
    SATAPortControllerSoftwareTest& ServedBy(const std::string& driverName) {
        host.Answer(controllersQuery, {Controller(ahciId)});
        ServeWith(host, ahciId, driverName);
        return *this;
    }
};

class SATAPortControllerSoftwareFamilies : public SATAPortControllerSoftwareTest,
                                           public testing::WithParamInterface<const char*> {};

TEST_P(SATAPortControllerSoftwareFamilies, BiosHasItsPropertiesInOrder) {
    EXPECT_EQ(ServedBy(GetParam()).All(bios), RecordList{ExpectedRecord(bios, GetParam())});
}

TEST_P(SATAPortControllerSoftwareFamilies, FirmwareHasItsPropertiesInOrder) {
    EXPECT_EQ(ServedBy(GetParam()).All(firmware), RecordList{ExpectedRecord(firmware, GetParam())});
}

TEST_P(SATAPortControllerSoftwareFamilies, DriverHasItsOwnNameAndNoVersion) {
    EXPECT_EQ(ServedBy(GetParam()).All(driver), RecordList{ExpectedRecord(driver, GetParam())});
}

TEST_P(SATAPortControllerSoftwareFamilies, ClassificationsTellBiosFirmwareAndDriverApart) {
    ServedBy(GetParam());
    EXPECT_EQ(ValuesOf(All(bios), "Classifications"), Values{"6"});
    EXPECT_EQ(ValuesOf(All(firmware), "Classifications"), Values{"10"});
    EXPECT_EQ(ValuesOf(All(driver), "Classifications"), Values{"2"});
}

INSTANTIATE_TEST_SUITE_P(EachFamily, SATAPortControllerSoftwareFamilies,
                         testing::Values("msahci", "pciide", "pciidex", "atapi"),
                         [](const auto& family) { return family.param; });

class SATAPortControllerSoftwareClasses : public SATAPortControllerSoftwareTest,
                                          public testing::WithParamInterface<std::string> {
protected:
    std::string className = GetParam();
};

INSTANTIATE_TEST_SUITE_P(EachClass, SATAPortControllerSoftwareClasses,
                         testing::Values(bios, firmware, driver),
                         [](const auto& one) { return one.param; });

TEST_P(SATAPortControllerSoftwareClasses, IsFoundOverThePlugAndPlayDevicesOfEachControllerInTurn) {
    host.Answer(controllersQuery, {Controller(ahciId), Controller(channelId)});
    ServeWith(host, ahciId, "pciide");
    ServeWith(host, channelId, "atapi");
    const auto expected = InCimv2({controllersQuery, DevicesOf(ahciId), DriversOf(ahciId),
                                   DevicesOf(channelId), DriversOf(channelId)});
    host.asked.clear();
    All(className);
    EXPECT_EQ(host.asked, expected);
    host.asked.clear();
    Keys(className);
    EXPECT_EQ(host.asked, expected);
}

TEST_F(SATAPortControllerSoftwareTest, TheQueriesNameTheRelativePath) {
    ServedBy("msahci").All(bios);
    EXPECT_EQ(host.asked.at(1), R"(root\CIMv2: ASSOCIATORS OF {Win32_IDEController.DeviceID=)"
                                R"("PCI\\VEN_8086&DEV_2922&SUBSYS_12345678&REV_02\\3&1AB2&0&FA"})"
                                R"( where assocclass=Win32_PnPDevice)");
}

TEST_F(SATAPortControllerSoftwareTest,
       TheQueriesNameTheWholePathWhenTheNamespaceIsSpelledOtherwise) {
    const std::string path = R"(\\SRV\ROOT\CIMV2:Win32_IDEController.DeviceID="X")";
    host.Answer(controllersQuery, {With(Controller("X"), {{"__PATH", path}})});
    All(bios);
    EXPECT_EQ(host.asked.at(1),
              R"(root\CIMv2: ASSOCIATORS OF {)" + path + "} where assocclass=Win32_PnPDevice");
}

TEST_F(SATAPortControllerSoftwareTest, IsOneForEachFamilyThatTheHostHas) {
    host.Answer(controllersQuery,
                {Controller(ahciId), Controller(R"(PCI\B&REV_1)"), Controller(channelId)});
    ServeWith(host, ahciId, "msahci");
    ServeWith(host, R"(PCI\B&REV_1)", "pciide");
    ServeWith(host, channelId, "atapi");
    EXPECT_EQ(ValuesOf(All(driver), "Name"), (Values{"msahci", "pciide", "atapi"}));
    EXPECT_EQ(ValuesOf(All(bios), "Name"), (Values{"SATA BIOS", "IDE/ATA BIOS", "IDE/ATA BIOS"}));
    EXPECT_EQ(ValuesOf(All(bios), "InstanceID"),
              (Values{"QV:QV_SATAPortControllerBIOS:" + ahciKey,
                      "QV:QV_SATAPortControllerBIOS:PCI&B&REV_1",
                      "QV:QV_SATAPortControllerBIOS:" + channelKey}));
}

TEST_P(SATAPortControllerSoftwareClasses, ASecondControllerOfAFamilyHasNoneOfItsOwn) {
    host.Answer(controllersQuery, {Controller(ahciId), Controller(R"(PCI\B&REV_1)")});
    ServeWith(host, ahciId, "pciidex");
    ServeWith(host, R"(PCI\B&REV_1)", "pciide");
    EXPECT_EQ(ValuesOf(All(className), "InstanceID"), Values{"QV:" + className + ":" + ahciKey});
}

TEST_P(SATAPortControllerSoftwareClasses, APathThatNamesALaterControllerOfTheFamilyFindsNothing) {
    host.Answer(controllersQuery, {Controller(ahciId), Controller(R"(PCI\B&REV_1)")});
    ServeWith(host, ahciId, "msahci");
    ServeWith(host, R"(PCI\B&REV_1)", "msahci");
    const std::string path = className + R"(.InstanceID="QV:)" + className;
    EXPECT_EQ(At(className, path + R"(:PCI&B&REV_1")"), RecordList{});
    EXPECT_EQ(ValuesOf(At(className, path + ":" + ahciKey + "\""), "InstanceID"),
              Values{"QV:" + className + ":" + ahciKey});
}

TEST_P(SATAPortControllerSoftwareClasses, IsFoundByItsPathInAnyLetterCase) {
    ServedBy("msahci");
    EXPECT_EQ(At(className, className + R"(.INSTANCEID="qv:)" + className + ":" + ahciKey + "\""),
              All(className));
}

TEST_P(SATAPortControllerSoftwareClasses, CarriesOnlyItsKeyWhenOnlyKeysAreAskedFor) {
    ServedBy("msahci");
    const std::string lower = FoldCase(className);
    EXPECT_EQ(Keys(lower),
              RecordList{Record(lower, {Key("InstanceID", "QV:" + lower + ":" + ahciKey)})});
}

TEST_P(SATAPortControllerSoftwareClasses,
       IdentityInfoValueKeepsTheBackslashesThatInstanceIDHasNot) {
    host.Answer(controllersQuery, {Controller(R"(PCI\VEN_8086&REV_02\3&1)")});
    ServeWith(host, R"(PCI\VEN_8086&REV_02\3&1)", "msahci");
    EXPECT_EQ(ValuesOf(All(className), "IdentityInfoValue"),
              Values{R"(QVQ:PCI\VEN_8086&REV_02\3&1)"});
    EXPECT_EQ(ValuesOf(All(className), "InstanceID"),
              Values{"QV:" + className + ":PCI&VEN_8086&REV_02&3&1"});
}

TEST_F(SATAPortControllerSoftwareTest, DriverNamesAreComparedWithRegardToCase) {
    EXPECT_EQ(ServedBy("MSAHCI").All(bios), RecordList{});
    EXPECT_EQ(ServedBy("storahci").All(bios), RecordList{});
    EXPECT_EQ(ServedBy("").All(bios), RecordList{});
}

TEST_F(SATAPortControllerSoftwareTest, OtherAssociatedObjectsDoNotCount) {
    ServedBy("msahci");
    host.Answer(DevicesOf(ahciId), {{{"__CLASS", "win32_pnpentity"},
                                     {"__PATH", FullPath("Win32_PnPEntity", ahciId)}}});
    EXPECT_EQ(All(bios), RecordList{});
    ServedBy("msahci");
    host.Answer(DriversOf(ahciId),
                {{{"__CLASS", "Win32_Service"}, {"Name", "msahci"}}, {{"Name", "msahci"}}});
    EXPECT_EQ(All(bios), RecordList{});
}

TEST_F(SATAPortControllerSoftwareTest, IsFoundOverALaterDeviceAndALaterDriver) {
    ServedBy("storahci");
    host.Answer(
        DevicesOf(ahciId),
        {{{"__CLASS", "Win32_PnPEntity"}, {"__PATH", FullPath("Win32_PnPEntity", "none")}},
         {{"__CLASS", "Win32_PnPEntity"}, {"__PATH", FullPath("Win32_PnPEntity", ahciId)}}});
    host.Answer(DriversOf(ahciId), {{{"__CLASS", "Win32_SystemDriver"}, {"Name", "disk"}},
                                    {{"__CLASS", "Win32_SystemDriver"}, {"Name", "msahci"}}});
    EXPECT_EQ(ValuesOf(All(driver), "Name"), Values{"msahci"});
}

TEST_F(SATAPortControllerSoftwareTest, AFailedAssociatorsQueryIsPassedOver) {
    host.Answer(controllersQuery, {Controller("X&REV_1"), Controller(ahciId)});
    ServeWith(host, ahciId, "msahci");
    EXPECT_EQ(ValuesOf(All(driver), "InstanceID"),
              Values{"QV:QV_SATAPortControllerDriver:" + ahciKey});
}

TEST_P(SATAPortControllerSoftwareClasses, AnAssociatorsQueryWithoutRowsIsPassedOver) {
    host.Answer(controllersQuery,
                {Controller("X&REV_1"), Controller("Y&REV_1"), Controller(ahciId)});
    host.Answer(DevicesOf("X&REV_1"), {});
    ServeWith(host, "Y&REV_1", "msahci");
    host.Answer(DriversOf("Y&REV_1"), {});
    ServeWith(host, ahciId, "msahci");
    EXPECT_EQ(ValuesOf(All(className), "InstanceID"), Values{"QV:" + className + ":" + ahciKey});
}

TEST_P(SATAPortControllerSoftwareClasses, IsNoneWhenTheControllersCannotBeHad) {
    ServedBy("msahci");
    host.Fail(controllersQuery);
    EXPECT_EQ(All(className), RecordList{});
}

TEST_F(SATAPortControllerSoftwareTest, TheVersionOfAControllerWithoutRevisionIsEmpty) {
    host.Answer(controllersQuery, {Controller(channelId)});
    ServeWith(host, channelId, "pciide");
    EXPECT_EQ(ValuesOf(All(bios), "VersionString"), Values{""});
}

TEST_F(SATAPortControllerSoftwareTest, IsPublishedForARowWithoutDeviceId) {
    host.Answer(controllersQuery, {Without(Controller(ahciId), "DeviceID")});
    ServeWith(host, ahciId, "atapi");
    EXPECT_EQ(ValuesOf(All(driver), "InstanceID"), Values{"QV:QV_SATAPortControllerDriver:"});
    EXPECT_EQ(ValuesOf(All(driver), "IdentityInfoValue"), Values{"QVQ:"});
}

}  // namespace
}  // namespace qv::test
