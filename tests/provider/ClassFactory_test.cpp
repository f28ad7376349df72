// The class factory through the entry points that COM calls.
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

}  // namespace
}  // namespace qv::test
