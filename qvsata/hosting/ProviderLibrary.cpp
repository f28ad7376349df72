#include "qvsata/hosting/ProviderLibrary.h"

#include "platform/windows/WbemStatus.h"
#include "qvsata/hosting/SystemError.h"

namespace qv::service {
namespace {

/// A relative name would be searched for: beside the program and among the loaded libraries first.
/// With an absolute one the library's own imports are found beside it and beside the program, in
/// the system's folder, and nowhere else.
HMODULE Load(const std::filesystem::path& file) {
    constexpr DWORD whereImportsAre =
        LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS;
    const std::filesystem::path absolute = std::filesystem::absolute(file).make_preferred();
    const HMODULE module = LoadLibraryExW(absolute.c_str(), nullptr, whereImportsAre);
    if (module == nullptr) {
        const DWORD error = GetLastError();
        ThrowSystemError(error, file);
    }
    return module;
}

template <typename Function>
Function Export(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace

ProviderLibrary::ProviderLibrary(const std::filesystem::path& file) : module_(Load(file)) {
    if (GetProcAddress(module_, "DllGetClassObject") == nullptr ||
        GetProcAddress(module_, "DllCanUnloadNow") == nullptr) {
        FreeLibrary(module_);
        ThrowSystemError(ERROR_PROC_NOT_FOUND, file);
    }
}

ProviderLibrary::~ProviderLibrary() {
    if (CanUnload()) {
        FreeLibrary(module_);
    }
}

windows::ComPtr<IUnknown> ProviderLibrary::Create(REFCLSID classId) const {
    const auto getClassObject = Export<LPFNGETCLASSOBJECT>(module_, "DllGetClassObject");
    windows::ComPtr<IClassFactory> factory;
    HRESULT result = getClassObject(classId, IID_PPV_ARGS(&factory));
    windows::ComPtr<IUnknown> object;
    if (SUCCEEDED(result)) {
        result = factory->CreateInstance(nullptr, IID_PPV_ARGS(&object));
    }
    windows::ThrowIfFailed(result);
    return object;
}

bool ProviderLibrary::CanUnload() const {
    return Export<LPFNCANUNLOADNOW>(module_, "DllCanUnloadNow")() == S_OK;
}

}  // namespace qv::service
