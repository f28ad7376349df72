#pragma once

#include <unknwn.h>
#include <windows.h>

#include <filesystem>
#include <string>
#include <utility>

#include "platform/windows/ComObject.h"
#include "tests/windows/log/ScratchFolder.h"
#include "tests/windows/support/ProviderLibrary.h"

namespace qv::test {

/// The library as it is after its loading, for one test: what it keeps for the process is that of
/// no other test. A copy of the file, because a library is loaded once per file.
class FreshLibrary {
public:
    FreshLibrary() {
        std::filesystem::copy_file(ProviderLibrary::Path(), folder_.File(L"QVWMISATA.dll"));
        module_ = LoadLibraryW(folder_.File(L"QVWMISATA.dll").c_str());
        if (module_ == nullptr) {
            throw std::runtime_error("the library was not loaded");
        }
    }
    FreshLibrary(const FreshLibrary&) = delete;
    FreshLibrary& operator=(const FreshLibrary&) = delete;
    ~FreshLibrary() { Free(); }

    HMODULE Module() const { return module_; }

    /// Lets the library go before the end. Nothing else is called then.
    void Free() {
        if (const HMODULE module = std::exchange(module_, nullptr)) {
            FreeLibrary(module);
        }
    }

    /// A new event provider.
    windows::ComPtr<IUnknown> MakeProvider() const {
        windows::ComPtr<IClassFactory> factory;
        windows::ComPtr<IUnknown> provider;
        using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
        Export<GetClassObject>("DllGetClassObject")(eventProviderId, IID_PPV_ARGS(&factory));
        factory->CreateInstance(nullptr, IID_PPV_ARGS(&provider));
        return provider;
    }

    HRESULT CanUnloadNow() const { return Export<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")(); }

private:
    template <typename Function>
    Function Export(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    }

    testing::ScratchFolder folder_;
    HMODULE module_ = nullptr;
};

}  // namespace qv::test
