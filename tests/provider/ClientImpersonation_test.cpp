// The check of the caller before each request operation, with real tokens.
#include <ostream>

#include "tests/provider/ProviderTest.h"
#include "tests/support/windows/ReplacedImport.h"

namespace qv::test {
namespace {

class ClientImpersonationTest : public ProviderTest {
protected:
    ClientImpersonationTest() {
        source.Answer(controllersQuery, {ControllerRow(L"A")});
        BeReady();
    }

    void BeCalledBy(SECURITY_IMPERSONATION_LEVEL level) {
        caller = windows::MakeObject<CallerStandIn>(level);
        initSink->statuses.clear();
    }

    void ExpectNothingDone() {
        EXPECT_TRUE(ThreadIsItsOwn());
        EXPECT_TRUE(sink->Untouched());
        EXPECT_THAT(initSink->statuses, IsEmpty());
        EXPECT_THAT(nameSpace->gets.All(), IsEmpty());
        EXPECT_THAT(source.connects.All(), IsEmpty());
    }

public:
    HRESULT Initialize() { return ProviderTest::Initialize(); }
    HRESULT Enumerate() { return ProviderTest::Enumerate(L"QV_SATAControllerLocation"); }
    HRESULT Get() { return ProviderTest::Get(LocationPath(LocationName(L"A"), L"A")); }
    HRESULT Query() { return ProviderTest::Query(L"WQL", L"SELECT * FROM QV_SATADiskDrive"); }
};

struct CheckedCall {
    const char* name;
    HRESULT (ClientImpersonationTest::*call)();
    HRESULT result;  ///< for a caller that allows impersonation
};

std::ostream& operator<<(std::ostream& stream, const CheckedCall& operation) {
    return stream << operation.name;
}

class ClientImpersonationOf : public ClientImpersonationTest,
                              public ::testing::WithParamInterface<CheckedCall> {
protected:
    HRESULT Call() { return (this->*GetParam().call)(); }
};

INSTANTIATE_TEST_SUITE_P(
    All, ClientImpersonationOf,
    ::testing::Values(CheckedCall{"Initialize", &ClientImpersonationTest::Initialize, S_OK},
                      CheckedCall{"CreateInstanceEnumAsync", &ClientImpersonationTest::Enumerate,
                                  S_OK},
                      CheckedCall{"GetObjectAsync", &ClientImpersonationTest::Get, S_OK},
                      CheckedCall{"ExecQueryAsync", &ClientImpersonationTest::Query,
                                  windows::Hr(WBEM_E_NOT_SUPPORTED)}),
    [](const auto& row) { return std::string(row.param.name); });

// The system cannot open the token of an anonymous caller.
TEST_P(ClientImpersonationOf, ReturnsTheSystemErrorOfAnAnonymousCaller) {
    BeCalledBy(SecurityAnonymous);
    EXPECT_EQ(Call(), HRESULT_FROM_WIN32(ERROR_CANT_OPEN_ANONYMOUS));
    EXPECT_THAT(caller->calls, ElementsAre("impersonate", "revert"));
    ExpectNothingDone();
}

TEST_P(ClientImpersonationOf, DeniesCallersThatAllowIdentificationOnly) {
    BeCalledBy(SecurityIdentification);
    EXPECT_EQ(Call(), windows::Hr(WBEM_E_ACCESS_DENIED));
    EXPECT_THAT(caller->calls, ElementsAre("impersonate", "revert"));
    ExpectNothingDone();
}

TEST_P(ClientImpersonationOf, ServesCallersThatAllowImpersonation) {
    BeCalledBy(SecurityImpersonation);
    EXPECT_EQ(Call(), GetParam().result);
    EXPECT_THAT(caller->calls, ElementsAre("impersonate", "revert", "impersonate", "revert"));
    EXPECT_TRUE(ThreadIsItsOwn());
}

TEST_P(ClientImpersonationOf, ServesCallersThatAllowDelegation) {
    BeCalledBy(SecurityDelegation);
    EXPECT_EQ(Call(), GetParam().result);
    EXPECT_THAT(caller->calls, ElementsAre("impersonate", "revert", "impersonate", "revert"));
    EXPECT_TRUE(ThreadIsItsOwn());
}

TEST_P(ClientImpersonationOf, ReturnsTheStatusOfAnImpersonationThatFails) {
    BeCalledBy(SecurityImpersonation);
    caller->impersonateResults = {RPC_E_ACCESS_DENIED};
    EXPECT_EQ(Call(), RPC_E_ACCESS_DENIED);
    EXPECT_THAT(caller->calls, ElementsAre("impersonate"));
    ExpectNothingDone();
}

TEST_P(ClientImpersonationOf, ReturnsTheStatusOfASecondImpersonationThatFails) {
    BeCalledBy(SecurityImpersonation);
    caller->impersonateResults = {S_OK, E_OUTOFMEMORY};
    EXPECT_EQ(Call(), E_OUTOFMEMORY);
    EXPECT_THAT(caller->calls, ElementsAre("impersonate", "revert", "impersonate"));
    ExpectNothingDone();
}

TEST_P(ClientImpersonationOf, ReturnsTheStatusOfARevertThatFails) {
    BeCalledBy(SecurityImpersonation);
    caller->revertResult = E_UNEXPECTED;
    EXPECT_EQ(Call(), E_UNEXPECTED);
    ExpectNothingDone();
}

TEST_P(ClientImpersonationOf, ReturnsTheSystemErrorOfATokenThatCannotBeOpened) {
    BeCalledBy(SecurityImpersonation);
    caller->withoutToken = true;
    EXPECT_EQ(Call(), HRESULT_FROM_WIN32(ERROR_NO_TOKEN));
    EXPECT_THAT(caller->calls, ElementsAre("impersonate", "revert"));
    ExpectNothingDone();
}

using TokenReader = BOOL WINAPI(HANDLE, TOKEN_INFORMATION_CLASS, void*, DWORD, DWORD*);

TEST_P(ClientImpersonationOf, ReturnsTheSystemErrorOfATokenThatCannotBeRead) {
    BeCalledBy(SecurityImpersonation);
    const auto fail = [](HANDLE, TOKEN_INFORMATION_CLASS, void*, DWORD, DWORD*) -> BOOL {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    };
    const ReplacedImport<TokenReader> reader(library.Module(), "GetTokenInformation", +fail);
    EXPECT_EQ(Call(), HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED));
    EXPECT_THAT(caller->calls, ElementsAre("impersonate", "revert"));
    ExpectNothingDone();
}

// The level that the library reads from any token.
DWORD levelRead = 0;

BOOL WINAPI ReadLevel(HANDLE, TOKEN_INFORMATION_CLASS information, void* level, DWORD room,
                      DWORD* size) {
    EXPECT_EQ(information, TokenImpersonationLevel);
    EXPECT_EQ(room, 4U);
    *static_cast<DWORD*>(level) = levelRead;
    *size = 4;
    return TRUE;
}

TEST_P(ClientImpersonationOf, DeniesTokensOfTheAnonymousLevel) {
    BeCalledBy(SecurityImpersonation);
    levelRead = SecurityAnonymous;
    const ReplacedImport<TokenReader> reader(library.Module(), "GetTokenInformation", &ReadLevel);
    EXPECT_EQ(Call(), windows::Hr(WBEM_E_ACCESS_DENIED));
    EXPECT_THAT(caller->calls, ElementsAre("impersonate", "revert"));
    ExpectNothingDone();
}

TEST_P(ClientImpersonationOf, RefusesTokensOfAnUnknownLevel) {
    BeCalledBy(SecurityImpersonation);
    levelRead = 4;
    const ReplacedImport<TokenReader> reader(library.Module(), "GetTokenInformation", &ReadLevel);
    EXPECT_EQ(Call(), static_cast<HRESULT>(0x8007FFFFU));
    EXPECT_THAT(caller->calls, ElementsAre("impersonate", "revert"));
    ExpectNothingDone();
}

TEST_F(ClientImpersonationTest, LastsWhileTheInstancesAreDelivered) {
    class WatchingSink : public SinkStandIn {
    public:
        bool impersonating = false;
        STDMETHODIMP Indicate(long count, IWbemClassObject** array) override {
            impersonating = !ThreadIsItsOwn();
            return SinkStandIn::Indicate(count, array);
        }
    };
    const auto watching = windows::MakeObject<WatchingSink>();
    ProviderTest::Enumerate(L"QV_SATAControllerLocation", watching.Get());
    EXPECT_TRUE(watching->impersonating);
}

TEST_F(ClientImpersonationTest, EndsWithAnEarlyReturn) {
    ProviderTest::Enumerate(L"QV_SATAControllerLocation", nullptr);
    EXPECT_TRUE(ThreadIsItsOwn());
    EXPECT_THAT(caller->calls, ElementsAre("impersonate", "revert", "impersonate", "revert"));
}

TEST_F(ClientImpersonationTest, EndsWithAnException) {
    source.Answer(disksQuery, {{{L"InterfaceType", L"IDE"}, {L"DeviceID", nullptr}}});
    source.Answer(mediaQuery, {{{L"Tag", L"x"}}});
    EXPECT_THROW(ProviderTest::Enumerate(L"QV_SATADiskDrive"), RequestError);
    EXPECT_TRUE(ThreadIsItsOwn());
    EXPECT_THAT(caller->calls, ElementsAre("impersonate", "revert", "impersonate", "revert"));
}

TEST_F(ClientImpersonationTest, IsNotAskedForByUpdates) {
    BeCalledBy(SecurityIdentification);
    const CallContext call(*caller.Get());
    EXPECT_EQ(provider->PutInstanceAsync(nullptr, 0, nullptr, nullptr),
              windows::Hr(WBEM_E_PROVIDER_NOT_CAPABLE));
    EXPECT_EQ(provider->DeleteInstanceAsync(nullptr, 0, nullptr, nullptr),
              windows::Hr(WBEM_E_PROVIDER_NOT_CAPABLE));
    EXPECT_THAT(caller->calls, IsEmpty());
}

TEST_F(ClientImpersonationTest, FailsOutsideACall) {
    EXPECT_EQ(provider->CreateInstanceEnumAsync(windows::Bstr(L"QV_SATAControllerLocation").Get(),
                                                0, nullptr, sink.Get()),
              RPC_E_CALL_COMPLETE);
    EXPECT_TRUE(sink->Untouched());
}

}  // namespace
}  // namespace qv::test
