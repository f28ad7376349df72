#pragma once

#include <windows.h>

#include <wbemcli.h>
#include <wbemprov.h>

#include <atomic>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/windows/ComObject.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/cim/Object.h"

namespace qv::service {

/// The result of a request to the provider.
struct ProviderAnswer {
    HRESULT returned = windows::Hr(WBEM_E_FAILED);  ///< returned by the call itself
    std::optional<HRESULT> completed;               ///< the status that reached the sink, if any
    unsigned completions = 0;  ///< number of final statuses that reached the sink
    std::string exception;     ///< thrown by the provider; empty if none
    ObjectList objects;        ///< in order of delivery

    /// Returns the status of the request: the sink's if there is one, otherwise the returned one. A
    /// provider that returns success without a final status has failed (WBEM_E_PROVIDER_FAILURE).
    HRESULT Status() const;
};

/// An instance provider as the management service uses it: initialised once for a namespace, each
/// request on its own thread in the multithreaded apartment, under a caller's identity. An
/// exception that a request lets through becomes the request's status. May be used from several
/// threads at once.
class ProviderObject {
public:
    /// Initialises `provider` for `nameSpace`, to which `services` connects it, at the level
    /// "impersonate". Throws RequestError with the status of a failure.
    ProviderObject(const windows::ComPtr<IUnknown>& provider, std::wstring_view nameSpace,
                   IWbemServices& services);

    /// Sets the impersonation level of later requests.
    void SetCallerLevel(SECURITY_IMPERSONATION_LEVEL level) { level_ = level; }

    ProviderAnswer Enumerate(std::string_view className) const;
    ProviderAnswer Get(std::string_view path) const;
    ProviderAnswer Query(std::string_view wql) const;

    /// Runs `call` as a request to the provider, with a sink of its own.
    using Call = std::function<HRESULT(IWbemServices& provider, IWbemObjectSink* sink)>;
    ProviderAnswer Request(const Call& call) const;

private:
    std::atomic<SECURITY_IMPERSONATION_LEVEL> level_ = SecurityImpersonation;
    windows::ComPtr<IWbemServices> services_;
};

}  // namespace qv::service
