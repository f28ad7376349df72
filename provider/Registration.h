#pragma once

#include <windows.h>

namespace qv::provider {

// Self-registration of both classes, their program IDs, the application ID and the type library
// under HKLM\SOFTWARE\Classes, where the management service's host looks.

/// Registers; what was written is removed again when a step fails. Gives SELFREG_E_CLASS or
/// SELFREG_E_TYPELIB then.
HRESULT RegisterLibrary();

/// Removes all that RegisterLibrary writes; what is not there counts as removed.
HRESULT UnregisterLibrary();

}  // namespace qv::provider
