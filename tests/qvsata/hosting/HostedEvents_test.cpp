#include "qvsata/hosting/HostedEvents.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/support/windows/RecordedOptions.h"

namespace qv::test {
namespace {

using News = service::EventFeed::News;
constexpr std::chrono::minutes longest(1);

class HostedEventsTest : public testing::Test {
protected:
    service::ManagementHost host_{
        RecordedOptions(ShippedRecording("hosts/drill/0-healthy.json"), QV_LIBRARY)};
    service::HostedEvents feed_{host_};
    std::stop_source stop_;
};

TEST_F(HostedEventsTest, AwaitTheEndOfACycle) {
    EXPECT_EQ(feed_.Await(longest, stop_.get_token()), News::cycleOver);
}

TEST_F(HostedEventsTest, EndTheWaitAtOnceAfterARequestToStop) {
    stop_.request_stop();
    EXPECT_EQ(feed_.Await(longest, stop_.get_token()), News::stopRequested);
}

TEST_F(HostedEventsTest, EndTheWaitAtARequestToStopFromAnotherThread) {
    feed_.Await(longest, stop_.get_token());
    std::jthread other([this] { stop_.request_stop(); });
    EXPECT_EQ(feed_.Await(longest, stop_.get_token()), News::stopRequested);
}

TEST_F(HostedEventsTest, EndTheWaitWhenTheTimeIsOver) {
    feed_.Await(longest, stop_.get_token());
    EXPECT_EQ(feed_.Await(std::chrono::milliseconds(1), stop_.get_token()), News::timeOut);
}

}  // namespace
}  // namespace qv::test
