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

/// How a request to the provider went.
struct ProviderAnswer {
    HRESULT returned = windows::Hr(WBEM_E_FAILED);  ///< what the call itself gave
    std::optional<HRESULT> completed;               ///< the status that reached the sink, if any
    unsigned completions = 0;                       ///< how many final statuses reached the sink
    std::string exception;  ///< what the provider let through; empty without one
    ObjectList objects;     ///< in the order in which they reached the sink

    /// The request's outcome: the sink's status comes before what was returned. A provider that
    /// returns success and gives no status has failed (WBEM_E_PROVIDER_FAILURE).
    HRESULT Status() const;
};

/// An instance provider as the management service uses it: initialised once for a namespace, each
/// request on a thread of its own in the multithreaded apartment, under a caller's identity. An
/// exception that a request lets through becomes the request's status. May be used from several
/// threads at once.
class ProviderObject {
public:
    /// Initialises `provider` for `nameSpace`, through which it calls back. The caller's level is
    /// "impersonate". Raises RequestError with the status when it fails.
    ProviderObject(const windows::ComPtr<IUnknown>& provider, std::wstring_view nameSpace,
                   IWbemServices& services);

    /// The impersonation level at which requests are made from now on.
    void SetCallerLevel(SECURITY_IMPERSONATION_LEVEL level) { level_ = level; }

    ProviderAnswer Enumerate(std::string_view className) const;
    ProviderAnswer Get(std::string_view path) const;
    ProviderAnswer Query(std::string_view wql) const;

    /// Any other request: `call` runs as the provider is called, with a sink of its own.
    using Call = std::function<HRESULT(IWbemServices& provider, IWbemObjectSink* sink)>;
    ProviderAnswer Request(const Call& call) const;

private:
    std::atomic<SECURITY_IMPERSONATION_LEVEL> level_ = SecurityImpersonation;
    windows::ComPtr<IWbemServices> services_;
};

}  // namespace qv::service
