#pragma once

#include <windows.h>

#include <wbemcli.h>

#include "platform/windows/ComObject.h"
#include "qvsata/service/Services.h"

namespace qv::service {

/// The locator that replaces the system's for the provider. Any number of threads may use it.
class Locator final : public windows::ComObject<IWbemLocator> {
public:
    explicit Locator(Connector machine) : machine_(std::move(machine)) {}

    /// Ignores user, password, locale, authority and context.
    STDMETHODIMP ConnectServer(const BSTR nameSpace, const BSTR user, const BSTR password,
                               const BSTR locale, LONG flags, const BSTR authority,
                               IWbemContext* context, IWbemServices** services) override;

private:
    Connector machine_;
};

}  // namespace qv::service
