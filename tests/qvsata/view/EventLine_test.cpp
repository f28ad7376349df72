#include "qvsata/view/EventLine.h"

#include <gtest/gtest.h>

#include <array>

namespace qv::test {
namespace {

using namespace view;

const std::string deviceId = "SCSI&DISK&VEN_HALDEN&PROD_HD4000F05&4&1&0&010000";

PublishedObject Indication(const std::string& eventId) {
    return {"QV_SATADeviceIndication",
            "",
            {{"EventID", eventId},
             {"EventTime", "20240704090503.007000-000"},
             {"DeviceID", deviceId},
             {"DeviceModel", "Halden HD4000F05"}},
            {}};
}

std::string Line(const std::string& eventId, const DiskStatuses& before, const DiskStatuses& now) {
    return PlainText(EventLine(Indication(eventId), before, now));
}

Style StyleOf(const std::string& eventId) {
    return EventLine(Indication(eventId), {}, {}).at(1).style;
}

PublishedObject DiskWith(const std::string& id, std::vector<std::string> statuses) {
    return {"QV_SATADiskDrive",
            "",
            {{"DeviceID", id}, {"StatusDescriptions", std::move(statuses)}},
            {}};
}

TEST(EventLine, HasTimeIdMeaningModelChangeAndDevice) {
    EXPECT_EQ(Line("605", {{deviceId, "Degraded"}}, {{deviceId, "Pred Fail"}}),
              "2024-07-04 09:05:03  605  failure predicted  Halden HD4000F05          "
              "Degraded → Pred Fail    " +
                  deviceId + "\n");
}

TEST(EventLine, SaysWhatEachEventMeans) {
    const std::pair<const char*, const char*> meanings[] = {
        {"600", "  600  disk appeared  "},    {"601", "  601  status unknown  "},
        {"602", "  602  disk OK  "},          {"603", "  603  disk error  "},
        {"604", "  604  disk degraded  "},    {"605", "  605  failure predicted  "},
        {"613", "  613  disk disappeared  "}, {"699", "  699  other event  "}};
    for (const auto& [eventId, words] : meanings) {
        EXPECT_NE(Line(eventId, {}, {}).find(words), std::string::npos) << eventId;
    }
}

TEST(EventLine, ColoursGoodAndBadNews) {
    EXPECT_EQ(StyleOf("602"), Style::good);
    EXPECT_EQ(StyleOf("603"), Style::bad);
    EXPECT_EQ(StyleOf("604"), Style::caution);
    EXPECT_EQ(StyleOf("605"), Style::bad);
}

TEST(EventLine, SaysHowANewDiskIs) {
    EXPECT_NE(Line("600", {}, {{deviceId, "OK"}}).find("  new, OK  "), std::string::npos);
    EXPECT_NE(Line("600", {}, {}).find("  new  "), std::string::npos);
}

TEST(EventLine, SaysHowADiskWasThatIsGone) {
    EXPECT_NE(Line("613", {{deviceId, "Error"}}, {}).find("  gone, was Error  "),
              std::string::npos);
    EXPECT_NE(Line("613", {}, {}).find("  gone  "), std::string::npos);
}

TEST(EventLine, SaysWhatIsKnownOfAChange) {
    EXPECT_NE(Line("603", {}, {{deviceId, "Error"}}).find("  now Error  "), std::string::npos);
    EXPECT_NE(Line("603", {{deviceId, "OK"}}, {}).find("  was OK  "), std::string::npos);
}

TEST(EventLine, LeavesATimeOfAnotherFormAsItIs) {
    PublishedObject indication = Indication("600");
    indication.values["EventTime"] = "then";
    EXPECT_TRUE(PlainText(EventLine(indication, {}, {})).starts_with("then  600"));
}

TEST(EventLine, StatusesOfAreTheDescriptionsByDevice) {
    const std::array disks{DiskWith("A", {"OK"}), DiskWith("B", {"Pred Fail"})};
    EXPECT_EQ(StatusesOf(disks), (DiskStatuses{{"A", "OK"}, {"B", "Pred Fail"}}));
}

TEST(EventLine, StatusesOfSayWhenADiskHasNone) {
    const std::array disks{DiskWith("A", {""}), DiskWith("B", {})};
    EXPECT_EQ(StatusesOf(disks), (DiskStatuses{{"A", "no status"}, {"B", "no status"}}));
}

}  // namespace
}  // namespace qv::test
