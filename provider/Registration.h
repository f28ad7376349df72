#pragma once

#include <windows.h>

namespace qv::provider {

// Self-registration of both classes, their program IDs, the application ID and the type library
// under HKLM\SOFTWARE\Classes, where the management service's host looks.

/// Registers the library; undoes everything if a step fails and returns SELFREG_E_CLASS or
/// SELFREG_E_TYPELIB.
HRESULT RegisterLibrary();

/// Removes all entries; missing ones are skipped.
HRESULT UnregisterLibrary();

}  // namespace qv::provider
