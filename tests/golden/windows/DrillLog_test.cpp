// The lines that the monitor writes to the legacy log.
#include <gmock/gmock.h>

#include <regex>

#include "tests/golden/windows/DrillHost.h"

namespace qv::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// Returns the lines without their times and checks the form of the times.
std::vector<std::string> LinesOf(const std::string& log) {
    const std::regex form(R"( \[\d\d/\d\d/\d{4} \d\d:\d\d:\d\d:\d{3}\] (.*))");
    std::vector<std::string> lines;
    std::size_t from = 0;
    for (std::size_t end = log.find("\r\n"); end != std::string::npos;
         end = log.find("\r\n", from)) {
        const std::string line = log.substr(from, end - from);
        std::smatch parts;
        EXPECT_TRUE(std::regex_match(line, parts, form)) << line;
        lines.push_back(parts[1]);
        from = end + 2;
    }
    EXPECT_EQ(from, log.size()) << "the last line has no end";
    return lines;
}

std::string Line(const std::string& text) {
    return "[QVWMISATA::CQVWMISATA_EventProv::] - CSATAHBA_EVENTS::" + text;
}

std::string Sent(const std::string& eventId) {
    return Line("EventThreadCheckforEvents| SendIndication for EventID = " + eventId);
}

class DrillLogTest : public ::testing::TestWithParam<std::uint32_t> {
protected:
    DrillHost host_{Drill(), GetParam()};
};

std::string LevelName(const ::testing::TestParamInfo<std::uint32_t>& level) {
    return "Level" + std::to_string(level.param);
}

class DrillLogInDetailTest : public DrillLogTest {};
TEST_P(DrillLogInDetailTest, HasALineForEachEventAndOneForTheEndOfTheThread) {
    EXPECT_THAT(host_.RunAll(), SizeIs(7));
    host_.End();
    EXPECT_THAT(
        LinesOf(host_.LegacyLog()),
        ElementsAre(Sent("604"), Sent("605"), Sent("603"), Sent("602"), Sent("601"), Sent("613"),
                    Sent("600"), Line("EventThreadExit| EventThreadExit:...")));
}
INSTANTIATE_TEST_SUITE_P(Levels, DrillLogInDetailTest, ::testing::Values(1U, 2U, 3U), LevelName);

class DrillLogOfFailuresTest : public DrillLogTest {};
TEST_P(DrillLogOfFailuresTest, IsEmptyAndTheEventsAreRaisedAllTheSame) {
    EXPECT_THAT(host_.RunAll(), SizeIs(7));
    host_.End();
    EXPECT_THAT(LinesOf(host_.LegacyLog()), IsEmpty());
}
INSTANTIATE_TEST_SUITE_P(Levels, DrillLogOfFailuresTest, ::testing::Values(4U, 5U), LevelName);

TEST(DrillLog, AtLevelTwoNamesTheQueryThatIsRefusedAtBothLooksOfACycle) {
    const DrillHost::Recordings drill = Drill();
    auto refusing = std::make_shared<service::RecordedHost>(*drill[0]);
    refusing->FailClass("root\\wmi", "MSStorageDriver_FailurePredictStatus");
    DrillHost host({drill[0], refusing}, 3, 2);
    EXPECT_THAT(host.RunAll(), IsEmpty());
    host.End();
    const std::string refused =
        "[QVWMISATA::CQVWMISATA_EventProv::] - LoggedQueryPort::RunWqlQuery| failed in root\\wmi: "
        "SELECT * FROM MSStorageDriver_FailurePredictStatus";
    EXPECT_THAT(LinesOf(host.LegacyLog()),
                ElementsAre(refused, refused, Line("EventThreadExit| EventThreadExit:...")));
}

}  // namespace
}  // namespace qv::test
