#pragma once

#include <windows.h>

#include <wbemcli.h>

#include <functional>
#include <memory>

#include "platform/windows/ComObject.h"
#include "qvsata/service/RecordedHost.h"
#include "qvsata/service/RecordingSequence.h"
#include "qvsata/service/com/EmbeddedNamespace.h"

namespace qv::service {

/// Opens a connection to a namespace of the machine, recorded or live; `services` is set on success
/// only.
using Connector =
    std::function<HRESULT(const BSTR nameSpace, windows::ComPtr<IWbemServices>& services)>;

/// Connects to the namespaces of a recorded host; WBEM_E_INVALID_NAMESPACE for one it lacks.
Connector ConnectRecorded(std::shared_ptr<const RecordedHost> host);

/// The same for the recording that is the present one when it connects.
Connector ConnectRecorded(std::shared_ptr<const RecordingSequence> recordings);

/// Connects to the machine's own management service.
Connector ConnectLive();

/// The locator that the provider finds in place of the system's: the provider's own namespace is
/// the embedded one, every other is the machine's. Any number of threads may use it.
class Locator final : public windows::ComObject<IWbemLocator> {
public:
    Locator(std::shared_ptr<const EmbeddedNamespace> own, Connector machine)
        : own_(std::move(own)), machine_(std::move(machine)) {}

    /// User, password, locale, authority and context are not looked at.
    STDMETHODIMP ConnectServer(const BSTR nameSpace, const BSTR user, const BSTR password,
                               const BSTR locale, LONG flags, const BSTR authority,
                               IWbemContext* context, IWbemServices** services) override;

private:
    std::shared_ptr<const EmbeddedNamespace> own_;
    Connector machine_;
};

}  // namespace qv::service
