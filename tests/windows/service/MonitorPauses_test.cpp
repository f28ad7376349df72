#include "qvsata/service/com/MonitorPauses.h"

#include <gtest/gtest.h>

#include <optional>

#include "SourceTree.h"
#include "qvsata/service/com/EventSubscription.h"

namespace qv::test {
namespace {

constexpr DWORD patience = 10000;

bool IsSignalled(HANDLE object, DWORD within) {
    return WaitForSingleObject(object, within) == WAIT_OBJECT_0;
}

service::HostOptions Drill() {
    service::HostOptions options;
    options.recorded = std::make_shared<service::RecordedHost>(
        service::RecordedHost::FromFile(QV_SOURCE_DIR "/hosts/drill/0-healthy.json"));
    options.mofFiles = {QV_SOURCE_DIR "/mof/cim_schema.mof", QV_SOURCE_DIR "/mof/qvwmisata.mof"};
    options.library = QV_PROVIDER;
    return options;
}

class MonitorPausesTest : public testing::Test {
protected:
    service::ManagementHost host_{Drill()};
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
