// The entry points that COM calls, and the factory and object behind them.
#include "tests/provider/ProviderTest.h"

namespace qv::test {
namespace {

constexpr CLSID foreignId{0x11111111, 0x2222, 0x3333, {4, 4, 4, 4, 4, 4, 4, 4}};

class ClassFactoryTest : public ::testing::Test {
protected:
    ClassFactoryTest() { library.GetClassObject(instanceProviderId, IID_PPV_ARGS(&factory)); }
    void TearDown() override {
        factory.Reset();
        EXPECT_EQ(library.CanUnloadNow(), S_OK);
    }

    const ProviderLibrary& library = ProviderLibrary::Get();
    ComPtr<IClassFactory> factory;
};

TEST_F(ClassFactoryTest, KnowsTheInstanceProvider) {
    ComPtr<IUnknown> unknown;
    EXPECT_EQ(library.GetClassObject(instanceProviderId, IID_PPV_ARGS(&unknown)), S_OK);
    EXPECT_NE(unknown.Get(), nullptr);
}

TEST_F(ClassFactoryTest, KnowsNoClassButItsOwn) {
    void* object = this;
    EXPECT_EQ(library.GetClassObject(foreignId, IID_IClassFactory, &object),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
}

TEST_F(ClassFactoryTest, HasNoOtherInterface) {
    void* object = this;
    EXPECT_EQ(library.GetClassObject(instanceProviderId, IID_IDispatch, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
}

TEST_F(ClassFactoryTest, WantsARoomForTheResult) {
    EXPECT_EQ(library.GetClassObject(instanceProviderId, IID_IClassFactory, nullptr), E_POINTER);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(factory->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(ClassFactoryTest, RefusesAggregation) {
    void* object = this;
    EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
}

TEST_F(ClassFactoryTest, KeepsNoObjectWhoseInterfaceWasRefused) {
    void* object = this;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
}

TEST_F(ClassFactoryTest, KeepsTheLibraryLoadedWhileItLives) {
    EXPECT_EQ(library.CanUnloadNow(), S_FALSE);
    factory.Reset();
    EXPECT_EQ(library.CanUnloadNow(), S_OK);
}

TEST_F(ClassFactoryTest, CountsItsLocks) {
    factory->LockServer(TRUE);
    factory->LockServer(TRUE);
    factory->LockServer(FALSE);
    factory.Reset();
    EXPECT_EQ(library.CanUnloadNow(), S_FALSE);
    ASSERT_EQ(library.GetClassObject(instanceProviderId, IID_PPV_ARGS(&factory)), S_OK);
    factory->LockServer(FALSE);
    factory.Reset();
    EXPECT_EQ(library.CanUnloadNow(), S_OK);
}

TEST_F(ClassFactoryTest, MakesObjectsThatKeepTheLibraryLoaded) {
    ComPtr<IUnknown> object;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_PPV_ARGS(&object)), S_OK);
    factory.Reset();
    EXPECT_EQ(library.CanUnloadNow(), S_FALSE);
    object.Reset();
    EXPECT_EQ(library.CanUnloadNow(), S_OK);
}

TEST_F(ClassFactoryTest, MakesAnotherObjectEachTime) {
    ComPtr<IUnknown> first;
    ComPtr<IUnknown> second;
    factory->CreateInstance(nullptr, IID_PPV_ARGS(&first));
    factory->CreateInstance(nullptr, IID_PPV_ARGS(&second));
    EXPECT_NE(first.Get(), second.Get());
}

class ProviderIdentity : public ProviderTest {};

TEST_F(ProviderIdentity, IsOneObjectBehindAllOfItsInterfaces) {
    ComPtr<IUnknown> ofInit;
    ComPtr<IUnknown> ofServices;
    ASSERT_EQ(init->QueryInterface(IID_PPV_ARGS(&ofInit)), S_OK);
    ASSERT_EQ(provider->QueryInterface(IID_PPV_ARGS(&ofServices)), S_OK);
    EXPECT_EQ(ofInit.Get(), ofServices.Get());
}

TEST_F(ProviderIdentity, IsReachedFromAnyInterface) {
    ComPtr<IWbemProviderInit> back;
    ComPtr<IWbemServices> forth;
    EXPECT_EQ(provider->QueryInterface(IID_PPV_ARGS(&back)), S_OK);
    EXPECT_EQ(back->QueryInterface(IID_PPV_ARGS(&forth)), S_OK);
    EXPECT_EQ(forth.Get(), provider.Get());
    EXPECT_EQ(back.Get(), init.Get());
}

TEST_F(ProviderIdentity, HasNoInterfaceOfTheEventProvider) {
    void* object = this;
    EXPECT_EQ(provider->QueryInterface(__uuidof(IWbemEventProvider), &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
}

TEST_F(ProviderIdentity, LogsItsLoadingAndUnloading) {
    init.Reset();
    provider.Reset();
    EXPECT_THAT(Logged(), ElementsAre(L"[Information] CQVWMISATA_InstProv::CQVWMISATA_InstProv| "
                                      L"CQVWMISATA_InstProv DLL is loaded",
                                      L"[Information] CQVWMISATA_InstProv::~CQVWMISATA_InstProv| "
                                      L"CQVWMISATA_InstProv DLL is unloaded"));
}

}  // namespace
}  // namespace qv::test
