#include "qvsata/hosting/substitutes/MonitorPauses.h"

#include <gtest/gtest.h>

#include <optional>

#include "qvsata/hosting/EventSubscription.h"
#include "tests/support/windows/RecordedOptions.h"

namespace qv::test {
namespace {

constexpr DWORD patience = 10000;

bool IsSignalled(HANDLE object, DWORD within) {
    return WaitForSingleObject(object, within) == WAIT_OBJECT_0;
}

class MonitorPausesTest : public testing::Test {
protected:
    service::ManagementHost host_{
        RecordedOptions(ShippedRecording("hosts/drill/0-healthy.json"), QV_LIBRARY)};
    service::MonitorPauses pauses_{host_.ProviderModule()};
    std::optional<service::EventSubscription> subscription_{std::in_place, host_};
};

TEST_F(MonitorPausesTest, TellThatACycleIsOverAndHowLongItIsToTheNext) {
    ASSERT_TRUE(IsSignalled(pauses_.CycleOver(), patience));
    EXPECT_EQ(pauses_.Length(), std::chrono::seconds(30));
}

TEST_F(MonitorPausesTest, TellOfACycleOnce) {
    ASSERT_TRUE(IsSignalled(pauses_.CycleOver(), patience));
    EXPECT_FALSE(IsSignalled(pauses_.CycleOver(), 100));
}

TEST_F(MonitorPausesTest, LetASubscriptionEndWhileTheMonitorIsHeld) {
    ASSERT_TRUE(IsSignalled(pauses_.CycleOver(), patience));
    subscription_.reset();
    host_.ReleaseProvider();
    EXPECT_TRUE(host_.CanUnloadLibrary());
}

TEST_F(MonitorPausesTest, LetASubscriptionEndWhileTheMonitorSleeps) {
    ASSERT_TRUE(IsSignalled(pauses_.CycleOver(), patience));
    pauses_.LetGo();
    Sleep(50);
    subscription_.reset();
    host_.ReleaseProvider();
    EXPECT_TRUE(host_.CanUnloadLibrary());
}

}  // namespace
}  // namespace qv::test
