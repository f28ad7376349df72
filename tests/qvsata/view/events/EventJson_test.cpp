#include "qvsata/view/events/EventJson.h"

#include <gtest/gtest.h>

#include "tests/qvsata/view/OsDisks.h"

namespace qv::test {
namespace {

using namespace view;
using nlohmann::json;

TEST(EventJson, HasWhatAConsumerNeeds) {
    DiskEvent event;
    event.meaning = MeaningOf("613");
    event.eventId = "613";
    event.time = "2024-07-04 09:05:03";
    event.host = "srv01";
    event.model = "M";
    event.deviceId = "D";
    event.before = NumberedDisk(2, {6, "Error"});
    event.before->serialNumber = "S1";
    EXPECT_EQ(json(EventAsJson(event)), json::parse(R"({
        "time": "2024-07-04 09:05:03", "event": "613", "meaning": "disk disappeared",
        "severity": "warning",
        "sentence": "Disk #2 M (S/N S1) of srv01: disk disappeared (gone, was Error).",
        "host": "srv01", "number": 2, "model": "M", "serialNumber": "S1", "deviceId": "D",
        "oldStatus": {"code": 6, "word": "Error"}, "newStatus": null})"));
}

}  // namespace
}  // namespace qv::test
