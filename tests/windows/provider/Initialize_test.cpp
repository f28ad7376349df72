#include <cstdlib>

#include "tests/windows/provider/ProviderTest.h"
#include "tests/windows/support/ReplacedImport.h"

namespace qv::test {
namespace {

class InitializeTest : public ProviderTest {};

TEST_F(InitializeTest, TellsTheInitSinkThatItIsReady) {
    EXPECT_EQ(Initialize(), S_OK);
    EXPECT_THAT(initSink->statuses, ElementsAre(std::pair(LONG{WBEM_S_INITIALIZED}, 0L)));
}

TEST_F(InitializeTest, ReturnsWhatTheInitSinkReturns) {
    initSink->result = E_ABORT;
    EXPECT_EQ(Initialize(), E_ABORT);
}

TEST_F(InitializeTest, LogsItsBeginningAndItsEnd) {
    Initialize();
    EXPECT_THAT(Logged(), ElementsAre(::testing::_,
                                      L"[Information] CQVWMISATA_InstProv::Initialize| "
                                      L"Entering Initialize",
                                      L"[Information] CQVWMISATA_InstProv::Initialize| "
                                      L"Leaving Initialize"));
}

TEST_F(InitializeTest, LogsNoEndWhenItFails) {
    Initialize(nullptr, initSink.Get());
    EXPECT_THAT(Logged(), ElementsAre(::testing::_,
                                      L"[Information] CQVWMISATA_InstProv::Initialize| "
                                      L"Entering Initialize"));
}

TEST_F(InitializeTest, RefusesToWorkWithoutANamespace) {
    EXPECT_EQ(Initialize(nullptr, initSink.Get()), windows::Hr(WBEM_E_INVALID_PARAMETER));
    EXPECT_THAT(initSink->statuses, IsEmpty());
}

TEST_F(InitializeTest, RefusesToWorkWithoutAnInitSink) {
    EXPECT_EQ(Initialize(nameSpace.Get(), nullptr), windows::Hr(WBEM_E_INVALID_PARAMETER));
}

TEST_F(InitializeTest, ChecksTheCallerBeforeItsArguments) {
    caller = windows::MakeObject<CallerStandIn>(SecurityIdentification);
    EXPECT_EQ(Initialize(nullptr, nullptr), windows::Hr(WBEM_E_ACCESS_DENIED));
}

TEST_F(InitializeTest, LooksUpTheDefinitionOfTheComputerSystemForItsPrefix) {
    Initialize();
    EXPECT_THAT(source.connects.All(), ElementsAre(ConnectCall{L"root\\QVQ", true}));
    EXPECT_THAT(source.asked.All(),
                ElementsAre(QueryCall{L"root\\QVQ", L"WQL", definitionQuery, 0x30, false}));
}

TEST_F(InitializeTest, SucceedsWithoutTheDefinitionOfTheComputerSystem) {
    source.connected = windows::Hr(WBEM_E_INVALID_NAMESPACE);
    EXPECT_EQ(Initialize(), S_OK);
}

TEST_F(InitializeTest, TakesANullForAnEmptyNamespaceName) {
    const CallContext call(*caller.Get());
    EXPECT_EQ(
        init->Initialize(nullptr, 0, nullptr, nullptr, nameSpace.Get(), nullptr, initSink.Get()),
        S_OK);
}

TEST_F(InitializeTest, TakesTheLastNamespaceThatItWasGiven) {
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

TEST_F(InitializeTest, FailsWithoutAFactoryOfPathParsers) {
    const ReplacedImport none(library.Module(), "CoGetClassObject", &GetNoFactory);
    EXPECT_EQ(Initialize(), windows::Hr(WBEM_E_FAILED));
    EXPECT_THAT(initSink->statuses, IsEmpty());
}

TEST_F(InitializeTest, LeavesTheProviderAsItWasWhenItFails) {
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

// The next allocation of the library after it got the factory of path parsers fails.
bool memoryIsShort = false;

HRESULT WINAPI GetFactoryAndBeShortOfMemory(REFCLSID classId, DWORD context, void* server,
                                            REFIID iid, void** object) {
    memoryIsShort = true;
    return CoGetClassObject(classId, context, server, iid, object);
}

void* AllocateUnlessShort(std::size_t size) {
    return std::exchange(memoryIsShort, false) ? nullptr : std::malloc(size);
}

TEST_F(InitializeTest, FailsWithoutMemoryForWhatItKeeps) {
    const ReplacedImport factory(library.Module(), "CoGetClassObject",
                                 &GetFactoryAndBeShortOfMemory);
    const ReplacedImport allocation(library.Module(), "malloc", &AllocateUnlessShort);
    EXPECT_EQ(Initialize(), windows::Hr(WBEM_E_OUT_OF_MEMORY));
    EXPECT_THAT(initSink->statuses, IsEmpty());
}

}  // namespace
}  // namespace qv::test
