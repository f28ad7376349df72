#include <gtest/gtest.h>
#include <objbase.h>

#include <optional>

#include "platform/windows/ComObject.h"
#include "tests/windows/provider/LibraryLog.h"
#include "tests/windows/support/ProviderLibrary.h"

namespace qv::test {
namespace {

std::optional<LibraryLog> libraryLog;

void MakeProvider() {
    windows::ComPtr<IClassFactory> factory;
    windows::ComPtr<IUnknown> provider;
    ProviderLibrary::Get().GetClassObject(instanceProviderId, IID_PPV_ARGS(&factory));
    factory->CreateInstance(nullptr, IID_PPV_ARGS(&provider));
}

}  // namespace

LibraryLog& TheLog() {
    return *libraryLog;
}

}  // namespace qv::test

// Requests arrive in the multi-threaded apartment.
int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    qv::test::libraryLog.emplace(&qv::test::MakeProvider);
    const int result = RUN_ALL_TESTS();
    qv::test::libraryLog.reset();
    CoUninitialize();
    return result;
}
