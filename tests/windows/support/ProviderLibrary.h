#pragma once

#include <unknwn.h>
#include <windows.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace qv::test {

inline constexpr CLSID instanceProviderId{
    0x3F6A2C1E, 0x5B7D, 0x4E90, {0xA1, 0xC3, 0x7D, 0x2E, 0x9F, 0x4B, 0x8A, 0x06}};
inline constexpr CLSID eventProviderId{
    0x9C4E7B21, 0x0D3A, 0x4F6B, {0x8E, 0x15, 0x2A, 0x9C, 0x6D, 0x3F, 0x7B, 0x40}};

/// The library as it was built, QV_LIBRARY, loaded for the rest of the process.
class ProviderLibrary {
public:
    static const ProviderLibrary& Get() {
        static const ProviderLibrary library;
        return library;
    }

    static std::wstring Path() {
        return std::filesystem::absolute(QV_LIBRARY).make_preferred().native();
    }

    HMODULE Module() const { return module_; }

    HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** object) const {
        return getClassObject_(classId, iid, object);
    }
    HRESULT CanUnloadNow() const { return canUnloadNow_(); }
    HRESULT RegisterServer() const { return registerServer_(); }
    HRESULT UnregisterServer() const { return unregisterServer_(); }

private:
    ProviderLibrary()
        : module_(LoadLibraryW(Path().c_str())),
          getClassObject_(Export<decltype(getClassObject_)>("DllGetClassObject")),
          canUnloadNow_(Export<decltype(canUnloadNow_)>("DllCanUnloadNow")),
          registerServer_(Export<decltype(registerServer_)>("DllRegisterServer")),
          unregisterServer_(Export<decltype(unregisterServer_)>("DllUnregisterServer")) {}

    template <typename Function>
    Function Export(const char* name) const {
        const FARPROC function = module_ == nullptr ? nullptr : GetProcAddress(module_, name);
        if (function == nullptr) {
            throw std::runtime_error(std::string("no ") + name);
        }
        return reinterpret_cast<Function>(reinterpret_cast<void*>(function));
    }

    HMODULE module_;
    HRESULT(STDAPICALLTYPE* getClassObject_)(REFCLSID, REFIID, void**);
    HRESULT(STDAPICALLTYPE* canUnloadNow_)();
    HRESULT(STDAPICALLTYPE* registerServer_)();
    HRESULT(STDAPICALLTYPE* unregisterServer_)();
};

}  // namespace qv::test
