#include "qvsata/view/events/EventLine.h"

#include <gtest/gtest.h>

#include "tests/qvsata/view/OsDisks.h"

namespace qv::test {
namespace {

using namespace view;

DiskEvent Predicted() {
    DiskEvent event;
    event.meaning = MeaningOf("605");
    event.eventId = "605";
    event.time = "2024-07-04 09:05:03";
    event.model = "Halden HD4000F05";
    event.deviceId = "SCSI&DISK&4&1&0&010000";
    event.before = NumberedDisk(2, {3, "Degraded"});
    event.now = NumberedDisk(2, {5, "Pred Fail"});
    return event;
}

TEST(EventLine, HasTimeIdMeaningNumberModelChangeAndDevice) {
    EXPECT_EQ(PlainText(EventLine(Predicted())),
              "2024-07-04 09:05:03  605  failure predicted  #2   Halden HD4000F05          "
              "Degraded → Pred Fail    SCSI&DISK&4&1&0&010000\n");
}

TEST(EventLine, GoesOnInTheNextLineOfANarrowTerminal) {
    EXPECT_EQ(PlainText(EventLine(Predicted(), 60)),
              "2024-07-04 09:05:03  605  failure predicted  #2\n"
              "    Halden HD4000F05  Degraded → Pred Fail\n"
              "    SCSI&DISK&4&1&0&010000\n");
}

TEST(EventLine, OfAnUnknownDiskHasADashForItsNumber) {
    DiskEvent event = Predicted();
    event.before.reset();
    event.now.reset();
    EXPECT_NE(PlainText(EventLine(event)).find("failure predicted  -    Halden"),
              std::string::npos);
}

TEST(EventLine, ShowsControlCharactersOfAModelAsCodes) {
    DiskEvent event = Predicted();
    event.model = "Evil\x1B[2J\nline";
    EXPECT_NE(PlainText(EventLine(event)).find(R"(Evil\x1b[2J\x0aline)"), std::string::npos);
}

}  // namespace
}  // namespace qv::test
