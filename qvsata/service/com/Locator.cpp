#include "qvsata/service/com/Locator.h"

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/service/com/EmbeddedServices.h"
#include "qvsata/service/com/Guarded.h"
#include "qvsata/service/com/LiveServices.h"
#include "qvsata/service/com/RecordedServices.h"

namespace qv::service {
namespace {

std::string Narrow(const BSTR text) {
    return windows::ToNarrow(windows::Bstr::ViewOf(text), CP_UTF8);
}

}  // namespace

Connector ConnectRecorded(std::shared_ptr<const RecordedHost> host) {
    return ConnectRecorded(std::make_shared<const RecordingSequence>(std::vector{std::move(host)}));
}

Connector ConnectRecorded(std::shared_ptr<const RecordingSequence> recordings) {
    return [recordings = std::move(recordings)](
               const BSTR nameSpace, windows::ComPtr<IWbemServices>& services) -> HRESULT {
        const std::string name = Narrow(nameSpace);
        auto host = recordings->Present();
        if (!host->HasNamespace(name)) {
            return windows::Hr(WBEM_E_INVALID_NAMESPACE);
        }
        services = windows::MakeObject<RecordedServices>(std::move(host), NormalNamespace(name));
        return WBEM_S_NO_ERROR;
    };
}

Connector ConnectLive() {
    return &LiveServices::Connect;
}

HRESULT Locator::ConnectServer(const BSTR nameSpace, const BSTR, const BSTR, const BSTR, LONG,
                               const BSTR, IWbemContext*, IWbemServices** services) {
    if (nameSpace == nullptr || services == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    *services = nullptr;
    return Guarded([&]() -> HRESULT {
        windows::ComPtr<IWbemServices> connected;
        HRESULT result = WBEM_S_NO_ERROR;
        if (IsSameNamespace(Narrow(nameSpace), own_->Name())) {
            connected = windows::MakeObject<EmbeddedServices>(own_);
        } else {
            result = machine_(nameSpace, connected);
        }
        *services = connected.Detach();
        return result;
    });
}

}  // namespace qv::service
