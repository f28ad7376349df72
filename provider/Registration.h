#pragma once

#include <windows.h>

namespace qv::provider {

// Self-registration of both classes, their program IDs, the application ID and the type library
// under HKLM\SOFTWARE\Classes, where the management service's host looks.

/// Registers the library. If a step fails, returns SELFREG_E_CLASS or SELFREG_E_TYPELIB: a library
/// that was registered before stays so, otherwise nothing is left.
HRESULT RegisterLibrary();

/// Removes all entries; missing ones are skipped.
HRESULT UnregisterLibrary();

}  // namespace qv::provider
