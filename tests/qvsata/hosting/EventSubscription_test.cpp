#include "qvsata/hosting/EventSubscription.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <optional>

#include "qvsata/hosting/substitutes/MonitorPauses.h"
#include "tests/support/windows/RecordedOptions.h"
#include "tests/support/windows/ShortSleeps.h"

namespace qv::test {
namespace {

using service::EventSubscription;
using testing::ElementsAre;
using testing::IsEmpty;

service::HostOptions FailingDisk() {
    service::HostOptions options =
        RecordedOptions(ShippedRecording("hosts/drill/0-healthy.json"), QV_LIBRARY);
    options.laterRecordings = {ShippedRecording("hosts/drill/1-degraded.json"),
                               ShippedRecording("hosts/drill/2-predicted.json")};
    return options;
}

class EventSubscriptionTest : public testing::Test {
protected:
    /// Returns the event IDs of the next cycle to end; the monitor is held after it.
    std::vector<std::string> NextCycle() {
        EXPECT_EQ(WaitForSingleObject(pauses_.CycleOver(), 10000), WAIT_OBJECT_0);
        return Taken();
    }

    std::vector<std::string> Taken() {
        std::vector<std::string> events;
        for (const auto& indication : subscription_->Take()) {
            events.push_back(service::TextOf(*indication, "EventID"));
        }
        return events;
    }

    void Step() {
        host_.Recordings()->Step();
        pauses_.LetGo();
    }

    ShortSleeps sleeps_;
    service::ManagementHost host_{FailingDisk()};
    service::MonitorPauses pauses_{host_.ProviderModule()};
    std::optional<EventSubscription> subscription_{std::in_place, host_};
};

TEST_F(EventSubscriptionTest, DeliversNothingWhileNothingChanges) {
    EXPECT_THAT(NextCycle(), IsEmpty());
    pauses_.LetGo();
    EXPECT_THAT(NextCycle(), IsEmpty());
}

TEST_F(EventSubscriptionTest, DeliversWhatChangesFromOneRecordingToTheNext) {
    EXPECT_THAT(NextCycle(), IsEmpty());
    Step();
    EXPECT_THAT(NextCycle(), ElementsAre("604"));
    Step();
    EXPECT_THAT(NextCycle(), ElementsAre("605"));
}

TEST_F(EventSubscriptionTest, DeliversInstancesOfTheIndicationClass) {
    NextCycle();
    Step();
    ASSERT_EQ(WaitForSingleObject(pauses_.CycleOver(), 10000), WAIT_OBJECT_0);
    const service::ObjectList indications = subscription_->Take();
    ASSERT_EQ(indications.size(), 1U);
    EXPECT_EQ(service::TextOf(*indications[0], "__CLASS"), "QV_SATADeviceIndication");
    EXPECT_EQ(service::TextOf(*indications[0], "SystemName"), "cellar-nas.example.org");
}

TEST_F(EventSubscriptionTest, KeepsWhatWasDeliveredBeforeItsEnd) {
    NextCycle();
    Step();
    ASSERT_EQ(WaitForSingleObject(pauses_.CycleOver(), 10000), WAIT_OBJECT_0);
    subscription_->End();
    EXPECT_THAT(Taken(), ElementsAre("604"));
}

TEST_F(EventSubscriptionTest, CanBeMadeAgain) {
    NextCycle();
    subscription_.reset();
    subscription_.emplace(host_);
    NextCycle();
    Step();
    EXPECT_THAT(NextCycle(), ElementsAre("604"));
}

TEST(EventSubscription, FailsAsTheProviderDoes) {
    service::HostOptions options = FailingDisk();
    const auto mof = std::filesystem::temp_directory_path() / "without-indication.mof";
    std::ofstream(mof) << "#pragma namespace(\"\\\\\\\\.\\\\root\\\\QVQ\")\nclass T { };\n";
    options.classes = service::ReadPublishedClasses({mof});
    const service::ManagementHost host(options);
    EXPECT_THAT([&host] { const EventSubscription subscription(host); },
                testing::Throws<RequestError>(testing::Property(
                    &RequestError::status, windows::ToStatus(windows::Hr(WBEM_E_NOT_FOUND)))));
}

}  // namespace
}  // namespace qv::test
