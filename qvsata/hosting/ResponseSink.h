#pragma once

#include <windows.h>

#include <wbemcli.h>

#include <mutex>

#include "qvsata/hosting/ProviderObject.h"

namespace qv::service {

/// Collects what a provider delivers for a request. Any thread may deliver.
class ResponseSink final : public windows::ComObject<IWbemObjectSink> {
public:
    STDMETHODIMP Indicate(LONG count, IWbemClassObject** objects) override;
    /// Ignores progress reports (WBEM_STATUS_PROGRESS).
    STDMETHODIMP SetStatus(LONG flags, HRESULT status, BSTR text,
                           IWbemClassObject* object) override;

    /// Moves everything delivered so far to an answer.
    void Deliver(ProviderAnswer& answer);

private:
    std::mutex mutex_;
    ObjectList objects_;
    std::optional<HRESULT> completed_;
    unsigned completions_ = 0;
};

}  // namespace qv::service
