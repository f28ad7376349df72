#pragma once

#include <unknwn.h>
#include <windows.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

#include "platform/windows/ComObject.h"
#include "tests/support/windows/ScratchFolder.h"

namespace qv::test {

inline constexpr CLSID instanceProviderId{
    0x3F6A2C1E, 0x5B7D, 0x4E90, {0xA1, 0xC3, 0x7D, 0x2E, 0x9F, 0x4B, 0x8A, 0x06}};
inline constexpr CLSID eventProviderId{
    0x9C4E7B21, 0x0D3A, 0x4F6B, {0x8E, 0x15, 0x2A, 0x9C, 0x6D, 0x3F, 0x7B, 0x40}};

/// The library, loaded from a file, and its exports.
class ProviderLibrary {
public:
    /// Returns the library as built, QV_LIBRARY, loaded for the rest of the process.
    static const ProviderLibrary& Get() {
        static const ProviderLibrary& library = *new ProviderLibrary(Path());
        return library;
    }

    static std::wstring Path() {
        return std::filesystem::absolute(QV_LIBRARY).make_preferred().native();
    }

    explicit ProviderLibrary(const std::wstring& file) : module_(LoadLibraryW(file.c_str())) {
        if (module_ == nullptr) {
            throw std::runtime_error("the library was not loaded");
        }
    }
    ProviderLibrary(const ProviderLibrary&) = delete;
    ProviderLibrary& operator=(const ProviderLibrary&) = delete;
    ~ProviderLibrary() { Free(); }

    HMODULE Module() const { return module_; }

    /// Unloads the library early. No other call may follow.
    void Free() {
        if (const HMODULE module = std::exchange(module_, nullptr)) {
            FreeLibrary(module);
        }
    }

    HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** object) const {
        return Call<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject",
                                                                        classId, iid, object);
    }
    HRESULT CanUnloadNow() const { return Call<Plain>("DllCanUnloadNow"); }
    HRESULT RegisterServer() const { return Call<Plain>("DllRegisterServer"); }
    HRESULT UnregisterServer() const { return Call<Plain>("DllUnregisterServer"); }

    /// Creates an object of a class.
    windows::ComPtr<IUnknown> Make(REFCLSID classId) const {
        windows::ComPtr<IClassFactory> factory;
        windows::ComPtr<IUnknown> object;
        if (FAILED(GetClassObject(classId, IID_PPV_ARGS(&factory))) ||
            FAILED(factory->CreateInstance(nullptr, IID_PPV_ARGS(&object)))) {
            throw std::runtime_error("the library made no object");
        }
        return object;
    }

private:
    using Plain = HRESULT(STDAPICALLTYPE*)();

    template <typename Function, typename... Arguments>
    HRESULT Call(const char* name, Arguments&&... arguments) const {
        const FARPROC function = GetProcAddress(module_, name);
        if (function == nullptr) {
            throw std::runtime_error(std::string("no ") + name);
        }
        return reinterpret_cast<Function>(reinterpret_cast<void*>(function))(
            std::forward<Arguments>(arguments)...);
    }

    HMODULE module_;
};

/// A copy of the library's file, because a library is loaded once per file.
class LibraryCopy {
protected:
    LibraryCopy() { std::filesystem::copy_file(ProviderLibrary::Path(), File()); }

    std::wstring File() const { return folder_.File(L"QVWMISATA.dll"); }

private:
    ScratchFolder folder_;
};

/// A freshly loaded library for one test: it shares its process-wide state with no other test.
class FreshLibrary : LibraryCopy, public ProviderLibrary {
public:
    FreshLibrary() : ProviderLibrary(File()) {}
};

}  // namespace qv::test
