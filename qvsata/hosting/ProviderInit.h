#pragma once

#include <windows.h>

#include <wbemcli.h>

#include <string_view>

namespace qv::service {

/// Initialises a provider of either kind for a namespace, through which it calls back. Gives the
/// status that the provider reported, that with which it refused, or WBEM_E_PROVIDER_FAILURE when
/// it reported none. The calling thread serves a call (ServedThread.h).
HRESULT InitializeProvider(IUnknown& provider, std::wstring_view nameSpace,
                           IWbemServices& services);

}  // namespace qv::service
