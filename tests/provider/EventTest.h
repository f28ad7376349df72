#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wbemprov.h>
#include <windows.h>
// Behind windows.h, which it needs.
#include <tlhelp32.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/windows/ComObject.h"
#include "platform/windows/Handle.h"
#include "tests/provider/EventSink.h"
#include "tests/provider/EventSource.h"
#include "tests/support/windows/CallerStandIn.h"
#include "tests/support/windows/InitSinkStandIn.h"
#include "tests/support/windows/LogFiles.h"
#include "tests/support/windows/NamespaceStandIn.h"
#include "tests/support/windows/ProviderLibrary.h"
#include "tests/support/windows/ShortSleeps.h"

namespace qv::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using windows::ComPtr;

/// How many threads the process has.
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

/// How many references there are to an object that no other thread uses.
inline ULONG ReferencesTo(IUnknown& object) {
    object.AddRef();
    return object.Release();
}

/// A fresh library between stand-ins for the management service, with log files and settings of its
/// own. Whatever a test did, at its end no thread of the library is left, the thread of the test is
/// its own, and the library could be unloaded.
class EventTest : public ::testing::Test {
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

    HRESULT Initialize() { return Initialize(init, nameSpace.Get(), initSink.Get()); }
    HRESULT Initialize(const ComPtr<IWbemProviderInit>& provider, IWbemServices* services,
                       IWbemProviderInitSink* toldTo) {
        const CallContext call(*caller.Get());
        return provider->Initialize(nullptr, 0, nameSpaceName.data(), nullptr, services,
                                    context.Get(), toldTo);
    }

    HRESULT ProvideEvents(IWbemObjectSink* to) { return ProvideEvents(init, to); }
    HRESULT ProvideEvents(const ComPtr<IWbemProviderInit>& provider, IWbemObjectSink* to) {
        ComPtr<IWbemEventProvider> events;
        provider.As(&events);
        return events->ProvideEvents(to, 0);
    }

    /// Initialised, and the machine's own hive is back, which tells the host's name.
    void BeInitialised() {
        ASSERT_EQ(Initialize(), S_OK);
        settings.reset();
    }

    /// An initialised provider whose first thread stands in its first cycle with these looks at the
    /// disks: one for the subscription, then two for each cycle.
    void Subscribe(std::vector<Disks> looks) {
        source.SetLooks(std::move(looks));
        BeInitialised();
        ASSERT_EQ(ProvideEvents(sink.Get()), S_OK);
    }

    /// The lines of the common log so far, without their times.
    std::vector<std::wstring> Logged() const { return CommonLogLines(folder); }
    std::string LegacyLogged() const { return LegacyLogText(folder); }

    ScratchFolder folder;
    /// What the library reads until it is initialised.
    std::optional<ScratchRegistry> settings{std::in_place};
    FreshLibrary library;
    EventSource source;
    ComPtr<CallerStandIn> caller = windows::MakeObject<CallerStandIn>();
    std::wstring nameSpaceName = L"root\\QVQ";
    ComPtr<NamespaceStandIn> nameSpace = windows::MakeObject<NamespaceStandIn>();
    ComPtr<ContextStandIn> context = windows::MakeObject<ContextStandIn>();
    ComPtr<InitSinkStandIn> initSink = windows::MakeObject<InitSinkStandIn>();
    ComPtr<EventSink> sink = windows::MakeObject<EventSink>();
    ComPtr<IWbemProviderInit> init;
    int threadsBefore = 0;
};

/// A line of the common log.
inline std::wstring Line(const std::wstring& level, const std::wstring& operation,
                         const std::wstring& text) {
    return L"[" + level + L"] CQVWMISATA_EventProv::" + operation + L"| " + text;
}

}  // namespace qv::test
