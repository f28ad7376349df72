// A provider that ends on one of its own threads: a consumer releases its last reference.
#include <array>
#include <atomic>

#include "tests/provider/EventTest.h"

namespace qv::test {
namespace {

/// The last reference to a provider, and the thread that releases it.
class LastReference {
public:
    void Hold(ComPtr<IWbemProviderInit>& provider) { provider_ = provider.Detach(); }

    /// Releases the reference, unless another thread did.
    void GiveBack() {
        if (IWbemProviderInit* const provider = provider_.exchange(nullptr)) {
            DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(),
                            thread_.Receive(), 0, FALSE, DUPLICATE_SAME_ACCESS);
            provider->Release();
            SetEvent(given_.Get());
        }
    }

    /// Waits until the reference is released.
    void MustBeGivenBack() const {
        Demand(WaitForSingleObject(given_.Get(), 20000) == WAIT_OBJECT_0,
               "the end of a provider on its own thread froze the process\n");
    }
    /// Returns whether the thread ended within ten seconds.
    bool ThreadHasEnded() const {
        return WaitForSingleObject(thread_.Get(), 10000) == WAIT_OBJECT_0;
    }

private:
    std::atomic<IWbemProviderInit*> provider_ = nullptr;
    windows::KernelHandle thread_;
    windows::KernelHandle given_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
};

/// Releases the reference inside each delivery, between two gates.
class DroppingSink : public EventSink {
public:
    explicit DroppingSink(LastReference& provider) : provider_(provider) {}

    Gate exit;

    STDMETHODIMP Indicate(long count, IWbemClassObject** indications) override {
        const HRESULT indicated = EventSink::Indicate(count, indications);
        provider_.GiveBack();
        exit.Pass();
        return indicated;
    }

private:
    LastReference& provider_;
};

/// Releases the reference at its own end.
class OwningSink : public EventSink {
public:
    explicit OwningSink(LastReference& provider) : provider_(provider) {}

private:
    ~OwningSink() override { provider_.GiveBack(); }

    LastReference& provider_;
};

class MonitorThreadsOwnThreadTest : public EventTest {
protected:
    /// Creates a provider one of whose threads is in the first delivery to the sink.
    void BeginADelivery() {
        dropping->gate.Close();
        Subscribe({{}, {{L"A"}, {L"B"}}});
        ASSERT_TRUE(dropping->gate.SomebodyCame());
    }

    /// Continues the delivery, which releases the provider.
    void Drop() {
        last.Hold(init);
        dropping->gate.Open();
        last.MustBeGivenBack();
    }

    /// Expects a new provider to detect and deliver a new disk.
    void ExpectThatTheNextOneWorks() {
        const ShortSleeps sleeps(library.Module());
        const auto next = windows::MakeObject<EventSink>();
        source.gate.Open();
        source.SetLooks({{}});
        Make(init);
        ASSERT_EQ(Initialize(), S_OK);
        ASSERT_EQ(ProvideEvents(next.Get()), S_OK);
        source.SetLooks({{{L"Next"}}});
        EXPECT_TRUE(next->HasReceived(1));
        init.Reset();
    }

    LastReference last;
    ComPtr<DroppingSink> dropping = windows::MakeObject<DroppingSink>(last);
};

TEST_F(MonitorThreadsOwnThreadTest, EndsWhenItsProviderWasDroppedInsideADelivery) {
    sink = dropping;
    BeginADelivery();
    Drop();
    ASSERT_TRUE(last.ThreadHasEnded());
    EXPECT_THAT(dropping->Events(), ElementsAre(L"600 A"));
    EXPECT_EQ(ThreadCount(), threadsBefore);
    EXPECT_EQ(library.CanUnloadNow(), S_OK);
    ExpectThatTheNextOneWorks();
}

TEST_F(MonitorThreadsOwnThreadTest, GivesBackWhatItWasDeliveringWith) {
    sink = dropping;
    BeginADelivery();
    Drop();
    ASSERT_TRUE(last.ThreadHasEnded());
    EXPECT_EQ(ReferencesTo(*dropping.Get()), 2U);  // here and as the sink
    EXPECT_EQ(ReferencesTo(*nameSpace.Get()), 1U);
    EXPECT_EQ(ReferencesTo(*nameSpace->definition.Get()), 1U);
}

TEST_F(MonitorThreadsOwnThreadTest, EndsWhenItsProviderGoesWithTheFormerSink) {
    const auto later = windows::MakeObject<EventSink>();
    sink = windows::MakeObject<OwningSink>(last);
    sink->gate.Close();
    Subscribe({{}, {{L"A"}}});
    ASSERT_TRUE(sink->gate.SomebodyCame());
    // The second thread gets no further than its first query.
    source.gate.Close();
    ASSERT_EQ(ProvideEvents(later.Get()), S_OK);
    last.Hold(init);
    Gate& delivery = sink->gate;
    sink.Reset();
    delivery.Open();
    last.MustBeGivenBack();
    ASSERT_TRUE(last.ThreadHasEnded());
    EXPECT_EQ(ReferencesTo(*later.Get()), 1U);
    EXPECT_EQ(ThreadCount(), threadsBefore);
    ExpectThatTheNextOneWorks();
}

TEST_F(MonitorThreadsOwnThreadTest, EndsTheOthersOfItsProvider) {
    sink = dropping;
    BeginADelivery();
    // They get no further than their first query, or the lock after it.
    source.gate.Close();
    ASSERT_EQ(ProvideEvents(sink.Get()), S_OK);
    ASSERT_EQ(ProvideEvents(sink.Get()), S_OK);
    Drop();
    ASSERT_TRUE(last.ThreadHasEnded());
    EXPECT_EQ(ThreadCount(), threadsBefore);
    ExpectThatTheNextOneWorks();
}

TEST_F(MonitorThreadsOwnThreadTest, RaisesTheRestOfItsPassToTheProviderThatIsLeft) {
    // The older provider's thread is in a delivery and polls no more.
    const auto other = windows::MakeObject<DroppingSink>(last);
    other->gate.Close();
    source.SetLooks({{}, {{L"FIRST"}}});
    BeInitialised();
    ASSERT_EQ(ProvideEvents(other.Get()), S_OK);
    ASSERT_TRUE(other->gate.SomebodyCame());

    const ComPtr<IWbemProviderInit> older = init;
    Make(init);
    sink = dropping;
    dropping->gate.Close();
    Subscribe({{{L"FIRST"}, {L"A"}, {L"B"}}});
    ASSERT_TRUE(dropping->gate.SomebodyCame());
    Drop();
    ASSERT_TRUE(other->HasReceived(2));
    EXPECT_THAT(other->Events(), ElementsAre(L"600 FIRST", L"600 B"));
    EXPECT_THAT(dropping->Events(), ElementsAre(L"600 A"));
    other->gate.Open();
    EXPECT_TRUE(last.ThreadHasEnded());
}

TEST_F(MonitorThreadsOwnThreadTest, KeepsTheLibraryUntilItHasLeftIt) {
    FreshLibrary left;
    std::array<wchar_t, MAX_PATH> path{};
    GetModuleFileNameW(left.Module(), path.data(), MAX_PATH);
    left.Make(eventProviderId).As(&init);
    dropping->exit.Close();
    sink = dropping;
    BeginADelivery();
    Drop();
    EXPECT_EQ(left.CanUnloadNow(), S_FALSE);
    left.Free();
    dropping->exit.Open();
    ASSERT_TRUE(last.ThreadHasEnded());
    EXPECT_EQ(GetModuleHandleW(path.data()), nullptr);
}

}  // namespace
}  // namespace qv::test
