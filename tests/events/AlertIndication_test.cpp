#include "events/AlertIndication.h"

#include <algorithm>

#include "tests/events/AlertHost.h"

namespace qv::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class AlertIndicationTest : public AlertTest {};

TEST_F(AlertIndicationTest, SaysWhatEveryAlertSaysInItsOrder) {
    clock.zone = {300, 0, -60, false};
    EXPECT_EQ(Fill(), Status::noError);
    const auto text = [](std::string name, std::string value) {
        return PropertyEntry{std::move(name), std::move(value), PropertyType::string, false};
    };
    EXPECT_THAT(indication.puts,
                ElementsAre(text("ProviderName", "QV SATA"), text("EventID", "605"),
                            text("IndicationIdentifier", "{1}"),
                            text("IndicationTime", "20240704090503.007000-300"),
                            text("OSVersion", "6.1.7601"),
                            PropertyEntry{"OSType", "103", PropertyType::int32, false},
                            PropertyEntry{"NetworkAddresses", "192.0.2.1*-*2001:db8::1",
                                          PropertyType::stringArray, false},
                            text("SystemCreationClassName", "QV_WinComputerSystem"),
                            text("SystemName", "host.example.org")));
}

TEST_F(AlertIndicationTest, AsksTheVendorsClassesInTheirOrderAndTheirSpelling) {
    Fill();
    EXPECT_THAT(host.asked,
                ElementsAre(R"(root\QVQ: )" + packageLinks, R"(root\QVQ: )" + firmwareLinks,
                            R"(root\QVQ: )" + softwareQuery, R"(root\QVQ: )" + enclosureQuery,
                            R"(root\QVQ: )" + bladeQuery, R"(root\QVQ: )" + metadataQuery));
}

TEST_F(AlertIndicationTest, AsksForNoMetadataOnBehalfOfTheHealthProvider) {
    EXPECT_EQ(Fill("QV MCHealth"), Status::noError);
    EXPECT_THAT(host.asked, Not(Contains(testing::HasSubstr("QV_ErrorMetadata"))));
    host.asked.clear();
    Fill("QV MCHEALTH");
    EXPECT_THAT(host.asked, Contains(testing::HasSubstr("QV_ErrorMetadata")));
}

TEST_F(AlertIndicationTest, TellsTwoAlertsOfTheSameMillisecondApart) {
    Fill();
    const std::string first = indication.Value("IndicationIdentifier");
    indication.puts.clear();
    Fill();
    EXPECT_NE(indication.Value("IndicationIdentifier"), first);
}

TEST_F(AlertIndicationTest, EndsWithTheFailureToMakeAnIdentifier) {
    system.guidStatus = static_cast<Status>(0x80070721);
    EXPECT_EQ(Fill(), system.guidStatus);
    EXPECT_THAT(indication.Names(), ElementsAre("ProviderName", "EventID"));
}

TEST_F(AlertIndicationTest, EndsWithTheFailureToEnumerateTheAdapters) {
    system.addressesStatus = Status::failed;
    EXPECT_EQ(Fill(), Status::failed);
    EXPECT_EQ(indication.Names().back(), "OSType");
    EXPECT_THAT(host.asked, IsEmpty());
}

TEST_F(AlertIndicationTest, FailsOnAHostWithoutAName) {
    host.names.clear();
    EXPECT_EQ(Fill(), Status::failed);
    EXPECT_EQ(indication.Names().back(), "SystemCreationClassName");
}

TEST_F(AlertIndicationTest, NamesAHostWhoseNameTheCodePageLacks) {
    host.names[platform::NameFormat::dnsFullyQualified] = {0, L"сервер"};
    EXPECT_EQ(Fill(), Status::noError);
    EXPECT_EQ(indication.Value("SystemName"), "сервер");
}

TEST_F(AlertIndicationTest, SaysOfAHostWithoutAddressesThatItHasNone) {
    system.addresses.clear();
    EXPECT_EQ(Fill(), Status::noError);
    EXPECT_EQ(indication.Find("NetworkAddresses"),
              (PropertyEntry{"NetworkAddresses", "", PropertyType::stringArray, false}));
}

struct KnownSystem {
    platform::OsVersion version;
    const char* osVersion;
    const char* osType;
};

class AlertIndicationOsTypeTest : public AlertTest,
                                  public testing::WithParamInterface<KnownSystem> {};

TEST_P(AlertIndicationOsTypeTest, FollowsFromTheVersion) {
    system.version = GetParam().version;
    Fill();
    EXPECT_EQ(indication.Value("OSVersion"), GetParam().osVersion);
    EXPECT_EQ(indication.Value("OSType"), GetParam().osType);
}

INSTANTIATE_TEST_SUITE_P(Alert, AlertIndicationOsTypeTest,
                         testing::Values(KnownSystem{{6, 1, 7601}, "6.1.7601", "103"},
                                         KnownSystem{{6, 0, 6002}, "6.0.6002", "77"},
                                         KnownSystem{{5, 2, 3790}, "5.2.3790", "70"},
                                         KnownSystem{{5, 1, 2600}, "5.1.2600", "67"},
                                         KnownSystem{{5, 0, 2195}, "5.0.2195", "58"},
                                         KnownSystem{{6, 2, 9200}, "6.2.9200", "18"},
                                         KnownSystem{{6, 3, 9600}, "6.3.9600", "18"},
                                         KnownSystem{{10, 0, 22631}, "10.0.22631", "18"},
                                         KnownSystem{{4, 0, 1381}, "4.0.1381", "18"},
                                         KnownSystem{{0, 0, 0}, "0.0.0", "18"}),
                         [](const auto& row) {
                             std::string name = std::string("Version") + row.param.osVersion;
                             std::ranges::replace(name, '.', '_');
                             return name;
                         });

/// A property that the indication refuses, and the last one that it accepts before.
struct Refusal {
    const char* refused;
    const char* lastPut;
};

class AlertIndicationRefusalTest : public AlertTest, public testing::WithParamInterface<Refusal> {};

TEST_P(AlertIndicationRefusalTest, EndsTheFillingWithItsStatus) {
    indication.refused = GetParam().refused;
    EXPECT_EQ(Fill(), indication.refusal);
    const auto names = indication.Names();
    EXPECT_EQ(names.empty() ? "" : names.back(), GetParam().lastPut);
}

INSTANTIATE_TEST_SUITE_P(Alert, AlertIndicationRefusalTest,
                         testing::Values(Refusal{"ProviderName", ""},
                                         Refusal{"EventID", "ProviderName"},
                                         Refusal{"IndicationIdentifier", "EventID"},
                                         Refusal{"IndicationTime", "IndicationIdentifier"},
                                         Refusal{"OSVersion", "IndicationTime"},
                                         Refusal{"OSType", "OSVersion"},
                                         Refusal{"NetworkAddresses", "OSType"},
                                         Refusal{"SystemCreationClassName", "NetworkAddresses"},
                                         Refusal{"SystemName", "SystemCreationClassName"}),
                         [](const auto& row) { return std::string(row.param.refused); });

}  // namespace
}  // namespace qv::test
