#include "tests/provider/EventTest.h"

namespace qv::test {
namespace {

class EventProviderTest : public EventTest {};

const wchar_t* const loadedText = L"CQVWMISATA_EventProv DLL is loaded";
const std::wstring loaded = Line(L"Information", L"CQVWMISATA_EventProv", loadedText);
const std::wstring entering = Line(L"Information", L"Initialize", L"Entering Initialize");

TEST_F(EventProviderTest, HasTheInterfacesOfAnEventProviderAndNoOther) {
    ComPtr<IWbemEventProviderSecurity> security;
    ComPtr<IWbemEventProvider> events;
    ComPtr<IWbemServices> services;
    ComPtr<IUnknown> identity;
    ComPtr<IUnknown> same;
    EXPECT_EQ(init.As(&security), S_OK);
    EXPECT_EQ(init.As(&events), S_OK);
    EXPECT_EQ(init.As(&services), E_NOINTERFACE);
    security.As(&identity);
    events.As(&same);
    EXPECT_EQ(identity.Get(), same.Get());
    EXPECT_EQ(static_cast<void*>(identity.Get()), static_cast<void*>(security.Get()));
}

TEST_F(EventProviderTest, TellsTheInitSinkThatItIsReady) {
    EXPECT_EQ(Initialize(), S_OK);
    EXPECT_THAT(initSink->statuses, ElementsAre(std::pair(LONG{WBEM_S_INITIALIZED}, 0L)));
}

TEST_F(EventProviderTest, ReturnsWhatTheInitSinkReturns) {
    initSink->result = E_ABORT;
    EXPECT_EQ(Initialize(), E_ABORT);
}

TEST_F(EventProviderTest, LogsItsBeginningAndItsEnd) {
    Initialize();
    const auto lines = Logged();
    ASSERT_GE(lines.size(), 4U);
    EXPECT_THAT(
        std::vector(lines.begin() + 1, lines.end()),
        ElementsAre(loaded, entering, Line(L"Information", L"Initialize", L"Leaving Initialize.")));
}

TEST_F(EventProviderTest, RefusesToWorkWithoutANamespace) {
    EXPECT_EQ(Initialize(init, nullptr, initSink.Get()), windows::Hr(WBEM_E_INVALID_PARAMETER));
    EXPECT_THAT(initSink->statuses, IsEmpty());
    EXPECT_EQ(Logged().back(), Line(L"Error", L"Initialize", L"INVALID PARAMETER"));
}

TEST_F(EventProviderTest, RefusesToWorkWithoutAnInitSink) {
    EXPECT_EQ(Initialize(init, nameSpace.Get(), nullptr), windows::Hr(WBEM_E_INVALID_PARAMETER));
    EXPECT_EQ(Logged().back(), Line(L"Error", L"Initialize", L"INVALID PARAMETER"));
}

TEST_F(EventProviderTest, RefusesACallerThatCannotBeImpersonatedBeforeAnythingElse) {
    caller = windows::MakeObject<CallerStandIn>(SecurityIdentification);
    EXPECT_EQ(Initialize(init, nullptr, nullptr), windows::Hr(WBEM_E_ACCESS_DENIED));
    EXPECT_EQ(Logged().back(), loaded);
}

TEST_F(EventProviderTest, ImpersonatesItsCallerUntilItReturns) {
    Initialize();
    EXPECT_EQ(caller->calls.back(), "revert");
    EXPECT_EQ(caller->calls,
              (std::vector<std::string>{"impersonate", "revert", "impersonate", "revert"}));
}

TEST_F(EventProviderTest, FetchesTheIndicationAndTheExtendedStatusWithTheCallersContext) {
    Initialize();
    EXPECT_THAT(nameSpace->gets.All(),
                ElementsAre(GetCall{L"QV_SATADeviceIndication", 0, context.Get()},
                            GetCall{L"__ExtendedStatus", 0, context.Get()}));
}

TEST_F(EventProviderTest, FailsAsTheFetchingOfTheIndicationFails) {
    nameSpace->getResults[L"QV_SATADeviceIndication"] = windows::Hr(WBEM_E_NOT_FOUND);
    EXPECT_EQ(Initialize(), windows::Hr(WBEM_E_NOT_FOUND));
    EXPECT_THAT(initSink->statuses, IsEmpty());
    EXPECT_EQ(Logged().back(), Line(L"Error", L"Initialize", L"FAILED - GetObject 80041002"));
    EXPECT_THAT(nameSpace->gets.All(), SizeIs(1));
}

TEST_F(EventProviderTest, LeavesTheProviderAsItWasWhenItFails) {
    BeInitialised();
    const auto later = windows::MakeObject<NamespaceStandIn>();
    later->getResults[L"QV_SATADeviceIndication"] = windows::Hr(WBEM_E_NOT_FOUND);
    ASSERT_EQ(Initialize(init, later.Get(), initSink.Get()), windows::Hr(WBEM_E_NOT_FOUND));
    EXPECT_EQ(ReferencesTo(*later.Get()), 1U);
    source.SetLooks({{}, {{L"A"}}});
    ASSERT_EQ(ProvideEvents(sink.Get()), S_OK);
    ASSERT_TRUE(sink->HasReceived(1));
    EXPECT_THAT(later->gets.All(), SizeIs(1));
}

TEST_F(EventProviderTest, WorksWithoutTheExtendedStatus) {
    nameSpace->getResults[L"__ExtendedStatus"] = windows::Hr(WBEM_E_NOT_FOUND);
    EXPECT_EQ(Initialize(), S_OK);
}

TEST_F(EventProviderTest, LooksUpTheDefinitionOfTheComputerSystemForItsPrefix) {
    Initialize();
    EXPECT_THAT(source.asked.All(),
                ElementsAre(::testing::Field(
                    &QueryCall::query,
                    LR"(SELECT * FROM meta_class WHERE __CLASS = "QV_WinComputerSystem")")));
}

TEST_F(EventProviderTest, TakesANullForAnEmptyNamespaceName) {
    const CallContext call(*caller.Get());
    EXPECT_EQ(
        init->Initialize(nullptr, 0, nullptr, nullptr, nameSpace.Get(), nullptr, initSink.Get()),
        S_OK);
}

TEST_F(EventProviderTest, TakesARefreshTimeoutOver) {
    settings->SetText(refreshTimeoutKey, L"RefreshTimeout", L"60");
    Initialize();
    EXPECT_THAT(Logged(),
                ::testing::Contains(Line(L"Information", L"Initialize", L"SetRefreshTimeout 6")));
}

TEST_F(EventProviderTest, SaysNothingOfARefreshTimeoutOfZero) {
    settings->SetText(refreshTimeoutKey, L"RefreshTimeout", L"0");
    Initialize();
    EXPECT_THAT(Logged(),
                ::testing::Not(::testing::Contains(::testing::HasSubstr(L"SetRefreshTimeout"))));
}

TEST_F(EventProviderTest, KeepsTheLibraryLoadedUntilTheProviderIsGone) {
    EXPECT_EQ(library.CanUnloadNow(), S_FALSE);
    init.Reset();
    EXPECT_EQ(library.CanUnloadNow(), S_OK);
    EXPECT_EQ(Logged().back(), Line(L"Information", L"~CQVWMISATA_EventProv",
                                    L"CQVWMISATA_EventProv DLL is unloaded"));
}

TEST_F(EventProviderTest, SaysNothingInTheLegacyLogBeforeItIsInitialised) {
    init.Reset();
    EXPECT_EQ(LegacyLogged(), "");
}

TEST_F(EventProviderTest, SaysInTheLegacyLogThatItsThreadsEnd) {
    Initialize();
    init.Reset();
    EXPECT_THAT(LegacyLogged(),
                ::testing::EndsWith("[QVWMISATA::CQVWMISATA_EventProv::] - "
                                    "CSATAHBA_EVENTS::EventThreadExit| EventThreadExit:...\r\n"));
}

TEST_F(EventProviderTest, GrantsEverybodyAccessToEverything) {
    ComPtr<IWbemEventProviderSecurity> security;
    init.As(&security);
    const BYTE sid[12] = {1, 1};
    EXPECT_EQ(security->AccessCheck(L"WQL", L"SELECT * FROM QV_SATADeviceIndication", 12, sid),
              S_OK);
    EXPECT_EQ(security->AccessCheck(nullptr, nullptr, 0, nullptr), S_OK);
}

}  // namespace
}  // namespace qv::test
