#include <atomic>
#include <cstdlib>
#include <thread>

#include "tests/provider/ProviderTest.h"
#include "tests/support/windows/HeldElsewhere.h"
#include "tests/support/windows/ReplacedImport.h"

namespace qv::test {
namespace {

class InstanceProviderTest : public ProviderTest {};

TEST_F(InstanceProviderTest, IsOneObjectBehindAllOfItsInterfaces) {
    ComPtr<IUnknown> ofInit;
    ComPtr<IUnknown> ofServices;
    ASSERT_EQ(init->QueryInterface(IID_PPV_ARGS(&ofInit)), S_OK);
    ASSERT_EQ(provider->QueryInterface(IID_PPV_ARGS(&ofServices)), S_OK);
    EXPECT_EQ(ofInit.Get(), ofServices.Get());
}

TEST_F(InstanceProviderTest, IsReachedFromAnyInterface) {
    ComPtr<IWbemProviderInit> back;
    ComPtr<IWbemServices> forth;
    EXPECT_EQ(provider->QueryInterface(IID_PPV_ARGS(&back)), S_OK);
    EXPECT_EQ(back->QueryInterface(IID_PPV_ARGS(&forth)), S_OK);
    EXPECT_EQ(forth.Get(), provider.Get());
    EXPECT_EQ(back.Get(), init.Get());
}

TEST_F(InstanceProviderTest, HasNoInterfaceOfTheEventProvider) {
    void* object = this;
    EXPECT_EQ(provider->QueryInterface(__uuidof(IWbemEventProvider), &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
}

TEST_F(InstanceProviderTest, LogsItsLoadingAndUnloading) {
    init.Reset();
    provider.Reset();
    EXPECT_THAT(Logged(), ElementsAre(L"[Information] CQVWMISATA_InstProv::CQVWMISATA_InstProv| "
                                      L"CQVWMISATA_InstProv DLL is loaded",
                                      L"[Information] CQVWMISATA_InstProv::~CQVWMISATA_InstProv| "
                                      L"CQVWMISATA_InstProv DLL is unloaded"));
}

TEST_F(InstanceProviderTest, TellsTheInitSinkThatItIsReady) {
    EXPECT_EQ(Initialize(), S_OK);
    EXPECT_THAT(initSink->statuses, ElementsAre(std::pair(LONG{WBEM_S_INITIALIZED}, 0L)));
}

TEST_F(InstanceProviderTest, ReturnsWhatTheInitSinkReturns) {
    initSink->result = E_ABORT;
    EXPECT_EQ(Initialize(), E_ABORT);
}

TEST_F(InstanceProviderTest, LogsItsBeginningAndItsEnd) {
    Initialize();
    EXPECT_THAT(Logged(), ElementsAre(::testing::_,
                                      L"[Information] CQVWMISATA_InstProv::Initialize| "
                                      L"Entering Initialize",
                                      L"[Information] CQVWMISATA_InstProv::Initialize| "
                                      L"Leaving Initialize"));
}

TEST_F(InstanceProviderTest, LogsNoEndWhenItFails) {
    Initialize(nullptr, initSink.Get());
    EXPECT_THAT(Logged(), ElementsAre(::testing::_,
                                      L"[Information] CQVWMISATA_InstProv::Initialize| "
                                      L"Entering Initialize"));
}

TEST_F(InstanceProviderTest, IsReadyOnlyOnceTheLogsMutexIsFree) {
    HeldElsewhere held(LibraryLog::MutexName().c_str());
    std::atomic<bool> isReleased = false;
    const std::jthread releasing([&] {
        Sleep(300);  // time for a provider that does not wait
        isReleased = true;
        held.Release();
    });
    EXPECT_EQ(Initialize(), S_OK);
    EXPECT_TRUE(isReleased);
}

TEST_F(InstanceProviderTest, RefusesToWorkWithoutANamespace) {
    EXPECT_EQ(Initialize(nullptr, initSink.Get()), windows::Hr(WBEM_E_INVALID_PARAMETER));
    EXPECT_THAT(initSink->statuses, IsEmpty());
}

TEST_F(InstanceProviderTest, RefusesToWorkWithoutAnInitSink) {
    EXPECT_EQ(Initialize(nameSpace.Get(), nullptr), windows::Hr(WBEM_E_INVALID_PARAMETER));
}

TEST_F(InstanceProviderTest, ChecksTheCallerBeforeItsArguments) {
    caller = windows::MakeObject<CallerStandIn>(SecurityIdentification);
    EXPECT_EQ(Initialize(nullptr, nullptr), windows::Hr(WBEM_E_ACCESS_DENIED));
}

TEST_F(InstanceProviderTest, LooksUpTheDefinitionOfTheComputerSystemForItsPrefix) {
    Initialize();
    EXPECT_THAT(source.connects.All(), ElementsAre(ConnectCall{L"root\\QVQ", true}));
    EXPECT_THAT(source.asked.All(),
                ElementsAre(QueryCall{L"root\\QVQ", L"WQL", definitionQuery, 0x30, false}));
}

TEST_F(InstanceProviderTest, SucceedsWithoutTheDefinitionOfTheComputerSystem) {
    source.connected = windows::Hr(WBEM_E_INVALID_NAMESPACE);
    EXPECT_EQ(Initialize(), S_OK);
}

TEST_F(InstanceProviderTest, TakesANullForAnEmptyNamespaceName) {
    const CallContext call(*caller.Get());
    EXPECT_EQ(
        init->Initialize(nullptr, 0, nullptr, nullptr, nameSpace.Get(), nullptr, initSink.Get()),
        S_OK);
}

TEST_F(InstanceProviderTest, TakesTheLastNamespaceThatItWasGiven) {
    Initialize();
    const auto later = windows::MakeObject<NamespaceStandIn>();
    ASSERT_EQ(Initialize(later.Get(), initSink.Get()), S_OK);
    Enumerate(L"QV_SATAControllerLocation");
    EXPECT_THAT(nameSpace->gets.All(), IsEmpty());
    EXPECT_EQ(later->gets.All().size(), 1U);
}

HRESULT WINAPI GetNoFactory(REFCLSID, DWORD, void*, REFIID, void** object) {
    *object = nullptr;
    return REGDB_E_CLASSNOTREG;
}

TEST_F(InstanceProviderTest, FailsWithoutAFactoryOfPathParsers) {
    const ReplacedImport none(library.Module(), "CoGetClassObject", &GetNoFactory);
    EXPECT_EQ(Initialize(), windows::Hr(WBEM_E_FAILED));
    EXPECT_THAT(initSink->statuses, IsEmpty());
}

TEST_F(InstanceProviderTest, LeavesTheProviderAsItWasWhenItFails) {
    BeReady();
    const auto later = windows::MakeObject<NamespaceStandIn>();
    {
        const ReplacedImport none(library.Module(), "CoGetClassObject", &GetNoFactory);
        ASSERT_EQ(Initialize(later.Get(), initSink.Get()), windows::Hr(WBEM_E_FAILED));
    }
    EXPECT_EQ(Get(L"QV_SATAControllerLocation.Name=\"none\""), windows::Hr(WBEM_E_NOT_FOUND));
    EXPECT_THAT(later->gets.All(), IsEmpty());
    EXPECT_THAT(nameSpace->gets.All(), ::testing::SizeIs(1));
}

// Set: the library's next allocation after it got the factory of path parsers fails.
bool memoryIsShort = false;

HRESULT WINAPI GetFactoryAndBeShortOfMemory(REFCLSID classId, DWORD context, void* server,
                                            REFIID iid, void** object) {
    memoryIsShort = true;
    return CoGetClassObject(classId, context, server, iid, object);
}

void* AllocateUnlessShort(std::size_t size) {
    return std::exchange(memoryIsShort, false) ? nullptr : std::malloc(size);
}

TEST_F(InstanceProviderTest, FailsWithoutMemoryForWhatItKeeps) {
    const ReplacedImport factory(library.Module(), "CoGetClassObject",
                                 &GetFactoryAndBeShortOfMemory);
    const ReplacedImport allocation(library.Module(), "malloc", &AllocateUnlessShort);
    EXPECT_EQ(Initialize(), windows::Hr(WBEM_E_OUT_OF_MEMORY));
    EXPECT_THAT(initSink->statuses, IsEmpty());
}

}  // namespace
}  // namespace qv::test
