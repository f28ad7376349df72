// Events that the monitor never delivers and a delivery drops.
#include "provider/EventDelivery.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wbemprov.h>

#include <string>
#include <vector>

#include "platform/windows/SystemClock.h"
#include "platform/windows/WindowsHostFacts.h"
#include "platform/windows/WindowsSystemFacts.h"
#include "platform/windows/WmiQueryPort.h"
#include "tests/provider/EventSink.h"
#include "tests/provider/EventSource.h"
#include "tests/support/windows/LogFiles.h"
#include "tests/support/windows/NamespaceStandIn.h"

namespace qv::test {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

class EventDeliveryTest : public ::testing::Test {
protected:
    EventDeliveryTest() {
        ScratchRegistry settings;
        SendLogsTo(Folder(), settings);
        // The log is opened at its first line.
        SendWith("600");
        sink->objects.Clear();
        lines = CommonLogLines(Folder()).size();
    }

    HRESULT Send(const InstanceRecord& event) {
        return provider::EventDelivery{nameSpace, sink, L"\\\\SRV\\root\\QVQ:"}.SendIndication(
            event, {service, host, system, clock}, log);
    }
    HRESULT SendWith(const std::string& eventId) {
        InstanceRecord event = WithoutId();
        SetProperty(event, "EventID", eventId);
        return Send(event);
    }
    static InstanceRecord WithoutId() {
        InstanceRecord event("QV_SATADeviceIndication");
        SetProperty(event, "DeviceID", "A");
        return event;
    }

    std::vector<std::wstring> NewLines() const {
        std::vector<std::wstring> all = CommonLogLines(Folder());
        all.erase(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(lines));
        return all;
    }

    ProviderLog log{L"QVWMISATA"};
    windows::WmiQueryPort service;
    windows::WindowsHostFacts host;
    windows::WindowsSystemFacts system;
    windows::SystemClock clock;
    EventSource source;
    windows::ComPtr<NamespaceStandIn> nameSpace = windows::MakeObject<NamespaceStandIn>();
    windows::ComPtr<EventSink> sink = windows::MakeObject<EventSink>();
    std::size_t lines = 0;

private:
    static const ScratchFolder& Folder() {
        static const ScratchFolder folder;
        return folder;
    }
};

constexpr const wchar_t* unrecognized =
    L"[Error] CQVWMISATA_EventProv::SendIndication| Unrecognized Event ID ";

TEST_F(EventDeliveryTest, DropsAnEventWithoutAnId) {
    EXPECT_EQ(Send(WithoutId()), S_OK);
    EXPECT_THAT(sink->Events(), IsEmpty());
    EXPECT_THAT(NewLines(), Contains(unrecognized));
}

TEST_F(EventDeliveryTest, DropsAnEventWithAnEmptyId) {
    EXPECT_EQ(SendWith(""), S_OK);
    EXPECT_THAT(sink->Events(), IsEmpty());
    EXPECT_THAT(NewLines(), Contains(unrecognized));
}

TEST_F(EventDeliveryTest, AcceptsAnyOtherId) {
    EXPECT_EQ(SendWith("x"), S_OK);
    EXPECT_THAT(sink->Events(), ::testing::ElementsAre(L"x A"));
    EXPECT_THAT(NewLines(), ::testing::Not(Contains(unrecognized)));
}

}  // namespace
}  // namespace qv::test
