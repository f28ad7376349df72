#include <gtest/gtest.h>

#include "tests/support/Builders.h"
#include "tests/support/ExpectedCatalogue.h"
#include "tests/support/Records.h"

namespace qv::test {
namespace {

using Values = std::vector<std::string>;

constexpr const char* product = "QV_SATAPortControllerProduct";
constexpr const char* location = "QV_SATAControllerLocation";
constexpr const char* package = "QV_SATAPortControllerPhysicalPackage";

class SATAPortControllerPhysicalTest : public testing::Test, public Builders {
protected:
    SATAPortControllerPhysicalTest() {
        host.Answer(controllersQuery, {Controller(ahciId), Controller(channelId)});
    }
};

class SATAPortControllerPhysicalClasses : public SATAPortControllerPhysicalTest,
                                          public testing::WithParamInterface<std::string> {};

INSTANTIATE_TEST_SUITE_P(EachClass, SATAPortControllerPhysicalClasses,
                         testing::Values(product, location, package),
                         [](const auto& one) { return one.param; });

TEST_F(SATAPortControllerPhysicalTest, ProductHasItsPropertiesInOrder) {
    EXPECT_EQ(All(product), RecordList{ExpectedRecord(product)});
}

TEST_F(SATAPortControllerPhysicalTest, LocationHasItsPropertiesInOrderAndItsTagDescTwice) {
    EXPECT_EQ(All(location), RecordList{ExpectedRecord(location)});
}

TEST_F(SATAPortControllerPhysicalTest, PackageHasItsPropertiesInOrder) {
    EXPECT_EQ(All(package), RecordList{ExpectedRecord(package)});
}

TEST_P(SATAPortControllerPhysicalClasses, AsksForTheControllersOnce) {
    All(GetParam());
    EXPECT_EQ(host.asked, InCimv2({controllersQuery}));
}

TEST_P(SATAPortControllerPhysicalClasses, IsNoneWhenTheControllersCannotBeHad) {
    host.Fail(controllersQuery);
    EXPECT_EQ(All(GetParam()), RecordList{});
}

TEST_F(SATAPortControllerPhysicalTest, EachCarriesOnlyItsKeysWhenOnlyKeysAreAskedFor) {
    EXPECT_EQ(NamesOf(Keys(product).at(0)),
              (Values{"Name", "Vendor", "IdentifyingNumber", "Version"}));
    EXPECT_EQ(NamesOf(Keys(location).at(0)), (Values{"Name", "PhysicalPosition"}));
    EXPECT_EQ(NamesOf(Keys(package).at(0)), (Values{"CreationClassName", "Tag"}));
}

TEST_F(SATAPortControllerPhysicalTest, EachIsFoundByItsPathInAnyLetterCase) {
    EXPECT_EQ(At(product, "qv_SATAportControllerProduct.name=\"" + ahciKey +
                              R"(",Vendor="THE maker",)"
                              R"(IdentifyingNumber="the caption with Revision number: 02",)"
                              R"(Version="02")"),
              All(product));
    EXPECT_EQ(At(location, "QV_SATAControllerLocation.Name=\"" + ahciKey +
                               R"(",PhysicalPosition="THE CAPTION with Device ID: 2922")"),
              All(location));
    EXPECT_EQ(At(package,
                 "QV_SATAPortControllerPhysicalPackage.CreationClassName="
                 "\"qv_sataportcontrollerphysicalpackage\",Tag=\"" +
                     ahciKey + "\""),
              All(package));
}

TEST_P(SATAPortControllerPhysicalClasses, IsNotFoundByAnotherPath) {
    EXPECT_EQ(At(GetParam(), GetParam() + R"(.Name="x")"), RecordList{});
}

TEST_F(SATAPortControllerPhysicalTest, PackageIsOfTheClassAsItWasAskedFor) {
    EXPECT_EQ(Keys("qv_sataPORTcontrollerphysicalpackage"),
              RecordList{Record("qv_sataPORTcontrollerphysicalpackage",
                                {Key("CreationClassName", "qv_sataPORTcontrollerphysicalpackage"),
                                 Key("Tag", ahciKey)})});
}

TEST_F(SATAPortControllerPhysicalTest, ARevisionAtTheEndRunsToTheEnd) {
    host.Answer(controllersQuery, {Controller(R"(PCI\VEN_8086&DEV_2922&REV_0F)")});
    EXPECT_EQ(ValuesOf(All(product), "Version"), Values{"0F"});
}

TEST_F(SATAPortControllerPhysicalTest, TheDeviceNumberIsOfTheFirstSegmentWhateverItIs) {
    host.Answer(controllersQuery, {Controller(R"(PCI\VEN_8086&SUBSYS_12345678&REV_02\3)")});
    EXPECT_EQ(ValuesOf(All(location), "ElementLocationTag"), Values{"PCI DEVICE ID: 12345678"});
}

TEST_F(SATAPortControllerPhysicalTest, MissingTextsAreEmptyTexts) {
    host.Answer(controllersQuery, {{{"DeviceID", ahciId}, {"Manufacturer", std::monostate{}}}});
    EXPECT_EQ(ValuesOf(All(product), "Vendor"), Values{""});
    EXPECT_EQ(ValuesOf(All(product), "IdentifyingNumber"), Values{" with Revision number: 02"});
    EXPECT_EQ(ValuesOf(All(location), "PhysicalPosition"), Values{" with Device ID: 2922"});
    EXPECT_EQ(ValuesOf(All(package), "Manufacturer"), Values{""});
    EXPECT_EQ(ValuesOf(All(package), "Name"), Values{""});
}

TEST_P(SATAPortControllerPhysicalClasses, DoesNotCarryTheHostsName) {
    EXPECT_EQ(ValuesOf(All(GetParam()), "SystemName"), Values{});
}

TEST_P(SATAPortControllerPhysicalClasses, IsNotPublishedForAChannel) {
    host.Answer(controllersQuery, {Controller(channelId), Controller(R"(PCIIDE\IDECHANNEL\5)")});
    EXPECT_EQ(All(GetParam()), RecordList{});
}

TEST_F(SATAPortControllerPhysicalTest, EachIsOnePerPortControllerInSourceOrder) {
    host.Answer(controllersQuery, {Controller("B&REV_1"), Controller("none"), Controller("A&REV_1"),
                                   Without(Controller(ahciId), "DeviceID")});
    EXPECT_EQ(ValuesOf(Keys(product), "Name"), (Values{"B&REV_1", "A&REV_1"}));
    EXPECT_EQ(ValuesOf(Keys(location), "Name"), (Values{"B&REV_1", "A&REV_1"}));
    EXPECT_EQ(ValuesOf(Keys(package), "Tag"), (Values{"B&REV_1", "A&REV_1"}));
}

}  // namespace
}  // namespace qv::test
