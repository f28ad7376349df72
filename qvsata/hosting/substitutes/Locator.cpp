#include "qvsata/hosting/substitutes/Locator.h"

#include <utility>

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/hosting/ServicesFace.h"
#include "qvsata/hosting/objects/Guarded.h"

namespace qv::service {

HRESULT Locator::ConnectServer(const BSTR nameSpace, const BSTR, const BSTR, const BSTR, LONG,
                               const BSTR, IWbemContext*, IWbemServices** services) {
    if (nameSpace == nullptr || services == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    *services = nullptr;
    return Guarded([&]() -> HRESULT {
        Connection connection =
            machine_(windows::ToNarrow(windows::Bstr::ViewOf(nameSpace), CP_UTF8));
        if (connection.services) {
            *services = windows::MakeObject<ServicesFace>(std::move(connection.services)).Detach();
        }
        return windows::ToHresult(connection.status);
    });
}

}  // namespace qv::service
