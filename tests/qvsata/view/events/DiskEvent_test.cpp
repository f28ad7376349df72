#include "qvsata/view/events/DiskEvent.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using namespace view;

const std::string deviceId = "SCSI&DISK&VEN_HALDEN&PROD_HD4000F05&4&1&0&010000";

PublishedObject Indication(const std::string& eventId) {
    return {"QV_SATADeviceIndication",
            "",
            {{"EventID", eventId},
             {"EventTime", "20240704090503.007000-000"},
             {"SystemName", "srv01"},
             {"DeviceID", deviceId},
             {"DeviceModel", "Halden HD4000F05   "}},
            {}};
}

KnownDisks DiskIs(const std::string& word) {
    OsDisk disk;
    disk.number = 2;
    disk.serialNumber = "HDF1";
    disk.deviceId = R"(SCSI\Disk&Ven_Halden&Prod_HD4000F05\4&1&0&010000)";
    disk.health = {2, word};
    return KnownDisksOf({disk});
}

DiskEvent Event(const std::string& eventId, const KnownDisks& before = {},
                const KnownDisks& now = {}) {
    return DescribeEvent(Indication(eventId), before, now);
}

struct Meaning {
    const char* eventId;
    const char* words;
    const char* severity;
    Style style;
};

class DiskEventMeaning : public testing::TestWithParam<Meaning> {};

TEST_P(DiskEventMeaning, HasWordsSeverityAndStyle) {
    const Meaning& expected = GetParam();
    const EventMeaning meaning = MeaningOf(expected.eventId);
    EXPECT_EQ(meaning.words, expected.words);
    EXPECT_EQ(meaning.severity, expected.severity);
    EXPECT_EQ(meaning.style, expected.style);
}

INSTANTIATE_TEST_SUITE_P(
    Events, DiskEventMeaning,
    testing::Values(Meaning{"600", "disk appeared", "information", Style::plain},
                    Meaning{"601", "status unknown", "warning", Style::caution},
                    Meaning{"602", "disk OK", "information", Style::good},
                    Meaning{"603", "disk error", "critical", Style::bad},
                    Meaning{"604", "disk degraded", "warning", Style::caution},
                    Meaning{"605", "failure predicted", "critical", Style::bad},
                    Meaning{"613", "disk disappeared", "warning", Style::caution},
                    Meaning{"699", "other event", "warning", Style::plain}),
    [](const auto& row) { return std::string("Event") + row.param.eventId; });

struct Change {
    const char* name;
    const char* eventId;
    KnownDisks before;
    KnownDisks now;
    const char* text;
};

class DiskEventChange : public testing::TestWithParam<Change> {};

TEST_P(DiskEventChange, SaysWhatIsKnown) {
    EXPECT_EQ(ChangeText(Event(GetParam().eventId, GetParam().before, GetParam().now)),
              GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Changes, DiskEventChange,
    testing::Values(Change{"FromTo", "605", DiskIs("Degraded"), DiskIs("Pred Fail"),
                           "Degraded → Pred Fail"},
                    Change{"NewWithStatus", "600", {}, DiskIs("OK"), "new, OK"},
                    Change{"New", "600", {}, {}, "new"},
                    Change{"GoneWithStatus", "613", DiskIs("Error"), {}, "gone, was Error"},
                    Change{"Gone", "613", {}, {}, "gone"},
                    Change{"OnlyNow", "603", {}, DiskIs("Error"), "now Error"},
                    Change{"OnlyBefore", "603", DiskIs("OK"), {}, "was OK"},
                    Change{"Nothing", "603", {}, {}, ""}),
    [](const auto& row) { return row.param.name; });

TEST(DiskEvent, HasAReadableTime) {
    EXPECT_EQ(Event("600").time, "2024-07-04 09:05:03");
}

TEST(DiskEvent, KeepsATimeOfAnotherForm) {
    PublishedObject indication = Indication("600");
    indication.values["EventTime"] = "then";
    EXPECT_EQ(DescribeEvent(indication, {}, {}).time, "then");
}

TEST(DiskEvent, FindsItsDiskByTheEncodedId) {
    const DiskEvent event = Event("602", {}, DiskIs("OK"));
    ASSERT_NE(event.Seen(), nullptr);
    EXPECT_EQ(event.Seen()->number, 2);
}

TEST(DiskEvent, NamesNoneOfTwoDisksWithOneId) {
    OsDisk one;
    one.deviceId = "A";
    OsDisk other;
    other.deviceId = "a";
    EXPECT_TRUE(KnownDisksOf({one, other}).empty());
}

TEST(DiskEvent, OfADiskThatIsGoneSawItBefore) {
    EXPECT_EQ(Event("613", DiskIs("OK"), {}).Seen()->serialNumber, "HDF1");
    EXPECT_EQ(Event("613").Seen(), nullptr);
}

TEST(DiskEvent, IsASentence) {
    EXPECT_EQ(SentenceOf(Event("605", DiskIs("OK"), DiskIs("Pred Fail"))),
              "Disk #2 Halden HD4000F05 (S/N HDF1) of srv01: failure predicted (OK → Pred Fail).");
    EXPECT_EQ(SentenceOf(Event("603")), "Disk Halden HD4000F05 of srv01: disk error.");
}

}  // namespace
}  // namespace qv::test
