#pragma once

#include <windows.h>

#include <unknwn.h>

#include <filesystem>

#include "platform/windows/ComObject.h"

namespace qv::service {

/// A COM in-process server loaded from a file, without its being registered. Unloaded on
/// destruction, unless it says that it is in use.
class ProviderLibrary {
public:
    /// Raises std::system_error when the file cannot be loaded, or is no COM server.
    explicit ProviderLibrary(const std::filesystem::path& file);
    ProviderLibrary(const ProviderLibrary&) = delete;
    ProviderLibrary& operator=(const ProviderLibrary&) = delete;
    ~ProviderLibrary();

    HMODULE Module() const { return module_; }

    /// A new object of a class. Raises RequestError with the library's status.
    windows::ComPtr<IUnknown> Create(REFCLSID classId) const;

    /// Whether nothing of the library is in use any more.
    bool CanUnload() const;

private:
    HMODULE module_;
};

}  // namespace qv::service
