#pragma once

#include <windows.h>

#include <wbemcli.h>

#include <string_view>

namespace qv::service {

/// Initialises an instance or event provider for a namespace, to which `services` connects it.
/// Returns the failure of Initialize, otherwise the status that the provider reported to its sink,
/// or WBEM_E_PROVIDER_FAILURE if it reported none. The calling thread must serve a call
/// (ServedThread.h).
HRESULT InitializeProvider(IUnknown& provider, std::wstring_view nameSpace,
                           IWbemServices& services);

}  // namespace qv::service
