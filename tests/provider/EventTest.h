#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wbemprov.h>
#include <windows.h>
// After windows.h, which it needs.
#include <tlhelp32.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/windows/ComObject.h"
#include "platform/windows/Handle.h"
#include "tests/provider/EventSink.h"
#include "tests/provider/EventSource.h"
#include "tests/provider/InitialisedTest.h"
#include "tests/support/windows/LogFiles.h"
#include "tests/support/windows/ProviderLibrary.h"
#include "tests/support/windows/ShortSleeps.h"

namespace qv::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// Returns the number of threads of the process.
inline int ThreadCount() {
    const windows::FileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    int count = 0;
    for (BOOL more = Thread32First(snapshot.Get(), &entry); more;
         more = Thread32Next(snapshot.Get(), &entry)) {
        count += entry.th32OwnerProcessID == GetCurrentProcessId() ? 1 : 0;
    }
    return count;
}

/// Returns the number of references to an object that no other thread uses.
inline ULONG ReferencesTo(IUnknown& object) {
    object.AddRef();
    return object.Release();
}

/// A fresh library between stand-ins for the management service, with its own log files and
/// settings. Checks after each test that no thread of the library is left, that the test's thread
/// has its own identity, and that the library could be unloaded.
class EventTest : public InitialisedTest {
protected:
    EventTest() { SendLogsTo(folder, *settings); }

    void SetUp() override {
        threadsBefore = ThreadCount();
        Make(init);
    }

    void TearDown() override {
        EXPECT_TRUE(ThreadIsItsOwn());
        init.Reset();
        EXPECT_EQ(ThreadCount(), threadsBefore);
        EXPECT_EQ(library.CanUnloadNow(), S_OK);
    }

    void Make(ComPtr<IWbemProviderInit>& provider) const {
        library.Make(eventProviderId).As(&provider);
        ASSERT_TRUE(provider);
    }

    HRESULT ProvideEvents(IWbemObjectSink* to) { return ProvideEvents(init, to); }
    HRESULT ProvideEvents(const ComPtr<IWbemProviderInit>& provider, IWbemObjectSink* to) {
        ComPtr<IWbemEventProvider> events;
        provider.As(&events);
        return events->ProvideEvents(to, 0);
    }

    /// Initialises the provider and restores the machine's own hive, which tells the host's name.
    void BeInitialised() {
        ASSERT_EQ(Initialize(), S_OK);
        settings.reset();
    }

    /// Subscribes through an initialised provider whose first thread is in its first cycle.
    /// `looks`: the disks of each poll, one poll for the subscription, then two for each cycle.
    void Subscribe(std::vector<Disks> looks) {
        source.SetLooks(std::move(looks));
        BeInitialised();
        ASSERT_EQ(ProvideEvents(sink.Get()), S_OK);
    }

    /// Returns the lines of the common log so far, without their times.
    std::vector<std::wstring> Logged() const { return CommonLogLines(folder); }
    std::string LegacyLogged() const { return LegacyLogText(folder); }

    ScratchFolder folder;
    /// The library's settings until it is initialised.
    std::optional<ScratchRegistry> settings{std::in_place};
    FreshLibrary library;
    EventSource source;
    ComPtr<EventSink> sink = windows::MakeObject<EventSink>();
    int threadsBefore = 0;
};

/// Returns a line of the common log.
inline std::wstring Line(const std::wstring& level, const std::wstring& operation,
                         const std::wstring& text) {
    return L"[" + level + L"] CQVWMISATA_EventProv::" + operation + L"| " + text;
}

}  // namespace qv::test
