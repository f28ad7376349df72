// What the monitor never hands over, and a delivery drops all the same.
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
#include "tests/windows/events/EventConsumer.h"
#include "tests/windows/events/EventSource.h"
#include "tests/windows/log/LogTimes.h"
#include "tests/windows/log/ScratchFolder.h"
#include "tests/windows/log/ScratchRegistry.h"

namespace qv::test {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

class EventDeliveryTest : public ::testing::Test {
protected:
    EventDeliveryTest() {
        testing::ScratchRegistry settings;
        settings.SetText(L"Software\\Corvane\\WBEM", L"LogFolder", Folder().Path());
        // The log is opened at its first line.
        SendWith("600");
        sink->indications.Clear();
        lines = Logged().size();
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
        std::vector<std::wstring> all = Logged();
        all.erase(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(lines));
        return all;
    }

    ProviderLog log{L"QVWMISATA"};
    windows::WmiQueryPort service;
    windows::WindowsHostFacts host;
    windows::WindowsSystemFacts system;
    windows::SystemClock clock;
    EventSource source;
    windows::ComPtr<EventNamespace> nameSpace = windows::MakeObject<EventNamespace>();
    windows::ComPtr<EventSink> sink = windows::MakeObject<EventSink>();
    std::size_t lines = 0;

private:
    static const testing::ScratchFolder& Folder() {
        static const testing::ScratchFolder folder;
        return folder;
    }
    static std::vector<std::wstring> Logged() {
        std::vector<std::wstring> texts;
        for (const std::wstring& line : testing::ReadLinesOf(Folder().File(L"QVWMISATA.log"))) {
            texts.push_back(testing::TextOf(line));
        }
        return texts;
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
