#pragma once

#include <windows.h>

#include <unknwn.h>

#include <filesystem>

#include "platform/windows/ComObject.h"

namespace qv::service {

/// A COM in-process server loaded from a file, without registration. The destructor unloads it
/// unless it reports that it is in use.
class ProviderLibrary {
public:
    /// Loads exactly this file; a relative name begins in the current folder. Throws
    /// std::system_error, "FILE: error NUMBER: TEXT", if the file cannot be loaded or is not a COM
    /// server.
    explicit ProviderLibrary(const std::filesystem::path& file);
    ProviderLibrary(const ProviderLibrary&) = delete;
    ProviderLibrary& operator=(const ProviderLibrary&) = delete;
    ~ProviderLibrary();

    HMODULE Module() const { return module_; }

    /// Creates an object of a class. Throws RequestError with the library's status.
    windows::ComPtr<IUnknown> Create(REFCLSID classId) const;

    /// Returns whether the library is no longer in use.
    bool CanUnload() const;

private:
    HMODULE module_;
};

}  // namespace qv::service
