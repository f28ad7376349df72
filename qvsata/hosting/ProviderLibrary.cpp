#include "qvsata/hosting/ProviderLibrary.h"

#include <system_error>

#include "platform/windows/WbemStatus.h"

namespace qv::service {
namespace {

[[noreturn]] void RaiseSystemError(const std::filesystem::path& file) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                            file.string());
}

template <typename Function>
Function Export(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace

ProviderLibrary::ProviderLibrary(const std::filesystem::path& file)
    : module_(LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH)) {
    if (module_ == nullptr) {
        RaiseSystemError(file);
    }
    if (GetProcAddress(module_, "DllGetClassObject") == nullptr ||
        GetProcAddress(module_, "DllCanUnloadNow") == nullptr) {
        FreeLibrary(module_);
        SetLastError(ERROR_PROC_NOT_FOUND);
        RaiseSystemError(file);
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
