// What a subscription starts and delivers: threads, polls and indications.
#include "tests/provider/EventTest.h"
#include "tests/support/windows/HeldElsewhere.h"

namespace qv::test {
namespace {

const std::wstring diskId = LR"(IDE\DISKX\5&1)";

class EventProviderSubscriptionsTest : public EventTest {
protected:
    void SetUp() override {
        EventTest::SetUp();
        source.Answer(LR"(SELECT * FROM meta_class WHERE __CLASS = "QV_WinComputerSystem")",
                      {{{L"__SERVER", L"SRV"}}});
    }

    bool HasLooked(std::size_t count) const {
        for (int turn = 0; turn < 1000 && source.LookCount() < count; ++turn) {
            Sleep(10);
        }
        return source.LookCount() >= count;
    }
};

TEST_F(EventProviderSubscriptionsTest, RefusesToWorkWithoutASink) {
    Initialize();
    EXPECT_EQ(ProvideEvents(nullptr), windows::Hr(WBEM_E_INVALID_PARAMETER));
    EXPECT_EQ(Logged().back(), Line(L"Error", L"ProvideEvents", L"INVALID PARAMETER"));
    EXPECT_EQ(ThreadCount(), threadsBefore);
    EXPECT_EQ(source.LookCount(), 0U);
}

TEST_F(EventProviderSubscriptionsTest, SaysThatItIsDoneAndStartsAThread) {
    Subscribe({{}});
    EXPECT_EQ(ThreadCount(), threadsBefore + 1);
    EXPECT_THAT(sink->statuses.All(), ElementsAre(StatusCall{WBEM_STATUS_COMPLETE, S_OK, true}));
    EXPECT_THAT(Logged(), ::testing::IsSupersetOf(
                              {Line(L"Information", L"ProvideEvents", L"Entering ProvideEvents"),
                               Line(L"Information", L"ProvideEvents", L"Leaving ProvideEvents.")}));
}

TEST_F(EventProviderSubscriptionsTest, StartsOneMoreThreadEachTime) {
    Subscribe({{}});
    EXPECT_EQ(ProvideEvents(sink.Get()), S_OK);
    EXPECT_EQ(ProvideEvents(sink.Get()), S_OK);
    EXPECT_EQ(ThreadCount(), threadsBefore + 3);
}

TEST_F(EventProviderSubscriptionsTest, LooksAtTheDisksOnceForTheFirstSubscriptionAndTwiceInACycle) {
    Subscribe({{}});
    ASSERT_TRUE(HasLooked(3));
    ProvideEvents(sink.Get());
    ASSERT_TRUE(HasLooked(5));
    Sleep(100);
    EXPECT_EQ(source.LookCount(), 5U);
}

TEST_F(EventProviderSubscriptionsTest, RaisesNothingForDisksThatWereThereWhenItBegan) {
    Subscribe({{{diskId}}});
    ASSERT_TRUE(HasLooked(3));
    Sleep(100);
    EXPECT_THAT(sink->Events(), IsEmpty());
}

TEST_F(EventProviderSubscriptionsTest, DeliversWhatHappenedToADisk) {
    const ShortSleeps sleeps(library.Module());
    Subscribe({{}, {{diskId}}, {{diskId}}, {{diskId, L"Pred Fail"}}, {{diskId, L"Pred Fail"}}, {}});
    ASSERT_TRUE(sink->HasReceived(3));
    EXPECT_THAT(sink->Events(),
                ElementsAre(L"600 IDE&DISKX&5&1", L"605 IDE&DISKX&5&1", L"613 IDE&DISKX&5&1"));
    EXPECT_EQ(ShortSleeps::asked, 30000U);
}

TEST_F(EventProviderSubscriptionsTest, LooksAtNoDiskUntilTheInventorysMutexIsFree) {
    Subscribe({{}});
    ASSERT_TRUE(HasLooked(3));
    HeldElsewhere held(L"DiskDriveListCurrMutex");
    source.SetLooks({{{diskId}}});
    ASSERT_EQ(ProvideEvents(sink.Get()), S_OK);
    Sleep(300);  // three waits of the provider
    EXPECT_EQ(source.LookCount(), 3U);
    EXPECT_THAT(sink->Events(), IsEmpty());
    held.Release();
    ASSERT_TRUE(sink->HasReceived(1));
    EXPECT_THAT(sink->Events(), ElementsAre(L"600 IDE&DISKX&5&1"));
}

TEST_F(EventProviderSubscriptionsTest, FillsAnIndicationWithTheCommonPropertiesAndThoseOfTheDisk) {
    Subscribe({{}, {{diskId}}});
    ASSERT_TRUE(sink->HasReceived(1));
    EXPECT_THAT(sink->Instance(0).Names(),
                ElementsAre(L"ProviderName", L"EventID", L"IndicationIdentifier", L"IndicationTime",
                            L"OSVersion", L"OSType", L"NetworkAddresses",
                            L"SystemCreationClassName", L"SystemName", L"EventTime", L"DeviceID",
                            L"AlertingManagedElement", L"AlertingElementFormat", L"DeviceModel"));
    EXPECT_EQ(sink->Instance(0).Value(L"ProviderName"), L"QV SATA");
    EXPECT_EQ(sink->Instance(0).Value(L"DeviceModel"), L"Model of " + diskId);
    EXPECT_THAT(sink->Instance(0).puts,
                ::testing::Contains(PutCall{L"AlertingElementFormat", VT_I4, L"2"}));
}

TEST_F(EventProviderSubscriptionsTest, RefersToTheDriveBehindTheNamespaceOfItsInitialisation) {
    Subscribe({{}, {{diskId}}});
    ASSERT_TRUE(sink->HasReceived(1));
    EXPECT_THAT(sink->Instance(0).Value(L"AlertingManagedElement"),
                ::testing::StartsWith(
                    LR"(\\SRV\root\QVQ:QV_SATADiskDrive.CreationClassName="QV_SATADiskDrive",)"
                    LR"(DeviceID="IDE&DISKX&5&1",SystemCreationClassName="QV_WinComputerSystem",)"
                    LR"(SystemName=")"));
}

TEST_F(EventProviderSubscriptionsTest, FetchesTheClassOfEachIndicationWithoutAContext) {
    Subscribe({{}, {{diskId}}});
    ASSERT_TRUE(sink->HasReceived(1));
    EXPECT_EQ(nameSpace->gets.All().back(), (GetCall{L"QV_SATADeviceIndication", 0, nullptr}));
}

TEST_F(EventProviderSubscriptionsTest, LogsEachEvent) {
    Subscribe({{}, {{diskId}}});
    ASSERT_TRUE(sink->HasReceived(1));
    EXPECT_THAT(Logged(),
                ::testing::Contains(Line(L"Information", L"SendIndication", L"Event ID = 600")));
    EXPECT_THAT(LegacyLogged(), ::testing::EndsWith("[QVWMISATA::CQVWMISATA_EventProv::] - "
                                                    "CSATAHBA_EVENTS::EventThreadCheckforEvents| "
                                                    "SendIndication for EventID = 600\r\n"));
}

TEST_F(EventProviderSubscriptionsTest, GoesOnWhenTheSinkRejectsAnIndication) {
    sink->indicateResults = {windows::Hr(WBEM_E_SERVER_TOO_BUSY),
                             windows::Hr(WBEM_E_SERVER_TOO_BUSY)};
    Subscribe({{}, {{L"A"}, {L"B"}}});
    ASSERT_TRUE(sink->HasReceived(2));
    EXPECT_THAT(sink->Events(), ElementsAre(L"600 A", L"600 B"));
}

/// Runs out of memory at the first indication.
class ExhaustedSink : public EventSink {
public:
    STDMETHODIMP Indicate(long count, IWbemClassObject** indications) override {
        const bool isFirst = ObjectCount() == 0;
        const HRESULT indicated = EventSink::Indicate(count, indications);
        return isFirst ? throw std::bad_alloc() : indicated;
    }
};

TEST_F(EventProviderSubscriptionsTest, GoesOnWhenADeliveryEndsWithAnException) {
    sink = windows::MakeObject<ExhaustedSink>();
    Subscribe({{}, {{L"A"}, {L"B"}}});
    ASSERT_TRUE(sink->HasReceived(2));
    EXPECT_THAT(sink->Events(), ElementsAre(L"600 A", L"600 B"));
}

TEST_F(EventProviderSubscriptionsTest, PausesThirtySecondsWhateverTheRefreshTimeout) {
    const ShortSleeps sleeps(library.Module());
    settings->SetText(refreshTimeoutKey, L"RefreshTimeout", L"7");
    Subscribe({{}, {{diskId}}});
    ASSERT_TRUE(sink->HasReceived(1));
    EXPECT_THAT(Logged(),
                ::testing::Contains(Line(L"Information", L"Initialize", L"SetRefreshTimeout 7")));
    Sleep(100);
    EXPECT_EQ(ShortSleeps::asked, 30000U);
}

TEST_F(EventProviderSubscriptionsTest, DeliversNothingWithoutAnInitialisation) {
    const ShortSleeps sleeps(library.Module());
    nameSpace->getResults[L"QV_SATADeviceIndication"] = windows::Hr(WBEM_E_FAILED);
    ASSERT_EQ(Initialize(), windows::Hr(WBEM_E_FAILED));
    source.SetLooks({{}, {{L"A"}}});
    ASSERT_EQ(ProvideEvents(sink.Get()), S_OK);
    // The cycle in which the disk appeared is over.
    ASSERT_TRUE(HasLooked(5));
    EXPECT_THAT(sink->Events(), IsEmpty());
}

TEST_F(EventProviderSubscriptionsTest, DeliversNothingWhenTheClassCannotBeFetched) {
    source.SetLooks({{}, {{L"A"}}});
    BeInitialised();
    nameSpace->getResults[L"QV_SATADeviceIndication"] = windows::Hr(WBEM_E_FAILED);
    ProvideEvents(sink.Get());
    ASSERT_TRUE(HasLooked(3));
    Sleep(200);
    EXPECT_THAT(sink->Events(), IsEmpty());
    EXPECT_EQ(Logged().back(), Line(L"Error", L"SendIndication",
                                    L"Failed GetObject for class: QV_SATADeviceIndication"));
}

TEST_F(EventProviderSubscriptionsTest, DeliversNothingThatCannotBeSpawned) {
    nameSpace->definition->spawnResults = {windows::Hr(WBEM_E_FAILED)};
    Subscribe({{}, {{L"A"}, {L"B"}}});
    ASSERT_TRUE(sink->HasReceived(1));
    EXPECT_THAT(sink->Events(), ElementsAre(L"600 B"));
}

TEST_F(EventProviderSubscriptionsTest, DeliversNothingWhoseCommonPropertiesAreRefused) {
    nameSpace->definition->undefined = {L"OSType"};
    Subscribe({{}, {{L"A"}}});
    ASSERT_TRUE(HasLooked(3));
    Sleep(200);
    EXPECT_THAT(sink->Events(), IsEmpty());
}

TEST_F(EventProviderSubscriptionsTest, DeliversWithoutAPropertyOfTheDiskThatIsRefused) {
    nameSpace->definition->undefined = {L"DeviceModel"};
    Subscribe({{}, {{L"A"}}});
    EXPECT_TRUE(sink->HasReceived(1));
}

TEST_F(EventProviderSubscriptionsTest, DeliversToTheSinkOfTheLastSubscription) {
    const auto later = windows::MakeObject<EventSink>();
    Subscribe({{}, {{L"A"}}});
    ASSERT_TRUE(sink->HasReceived(1));
    source.gate.Close();
    ASSERT_EQ(ProvideEvents(later.Get()), S_OK);
    ASSERT_TRUE(source.gate.SomebodyCame());
    source.SetLooks({{}});
    source.gate.Open();
    ASSERT_TRUE(later->HasReceived(1));
    EXPECT_THAT(later->Events(), ElementsAre(L"613 A"));
    EXPECT_THAT(sink->Events(), SizeIs(1));
}

TEST_F(EventProviderSubscriptionsTest, OfTwoProvidersLetsTheNewerOneDeliver) {
    ComPtr<IWbemProviderInit> newer;
    Make(newer);
    const auto newerSink = windows::MakeObject<EventSink>();
    source.SetLooks({{}, {{L"A"}}, {{L"A"}}, {}});
    ASSERT_EQ(Initialize(newer, nameSpace.Get(), initSink.Get()), S_OK);
    BeInitialised();
    ASSERT_EQ(ProvideEvents(newer, newerSink.Get()), S_OK);
    ASSERT_TRUE(newerSink->HasReceived(1));
    ASSERT_EQ(ProvideEvents(sink.Get()), S_OK);
    ASSERT_TRUE(newerSink->HasReceived(2));
    EXPECT_THAT(sink->Events(), IsEmpty());
    newer.Reset();
}

TEST_F(EventProviderSubscriptionsTest, OfTwoProvidersLetsTheOneDeliverThatIsLeft) {
    const ShortSleeps sleeps(library.Module());
    ComPtr<IWbemProviderInit> newer;
    Make(newer);
    const auto newerSink = windows::MakeObject<EventSink>();
    ASSERT_EQ(Initialize(newer, nameSpace.Get(), initSink.Get()), S_OK);
    Subscribe({{}});
    ASSERT_EQ(ProvideEvents(newer, newerSink.Get()), S_OK);
    newer.Reset();
    source.SetLooks({{{L"A"}}});
    EXPECT_TRUE(sink->HasReceived(1));
    EXPECT_THAT(newerSink->Events(), IsEmpty());
    init.Reset();
}

}  // namespace
}  // namespace qv::test
