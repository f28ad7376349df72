#include "platform/windows/WmiQueryPort.h"

#include <wbemprov.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <new>
#include <utility>

#include "platform/windows/Bstr.h"
#include "platform/windows/ComObject.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "platform/windows/WmiRow.h"

namespace qv::windows {
namespace {

constexpr long batchTimeout = 2000;  // milliseconds
constexpr ULONG batchSize = 10;

HRESULT Connect(std::string_view nameSpace, ComPtr<IWbemServices>& services) {
    ComPtr<IWbemLocator> locator;
    const HRESULT created = CoCreateInstance(CLSID_WbemAdministrativeLocator, nullptr,
                                             CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&locator));
    return FAILED(created) ? created
                           : locator->ConnectServer(Bstr(ToWide(nameSpace)).Get(), nullptr, nullptr,
                                                    nullptr, 0, nullptr, nullptr, &services);
}

HRESULT Submit(IWbemServices& services, std::string_view query,
               ComPtr<IEnumWbemClassObject>& results) {
    return services.ExecQuery(Bstr(L"WQL").Get(), Bstr(ToWide(query)).Get(),
                              WBEM_FLAG_RETURN_IMMEDIATELY | WBEM_FLAG_FORWARD_ONLY, nullptr,
                              &results);
}

// A failure ends the reading, and the rows read so far count. A timeout does not: the loop waits
// for a slow source without a time limit.
void ReadAll(IEnumWbemClassObject& results, platform::Rows& rows) {
    for (HRESULT status = Hr(WBEM_S_NO_ERROR); status != Hr(WBEM_S_FALSE);) {
        std::array<IWbemClassObject*, batchSize> batch{};
        ULONG returned = 0;
        status = results.Next(batchTimeout, batchSize, batch.data(), &returned);
        std::array<ComPtr<IWbemClassObject>, batchSize> objects;
        std::ranges::transform(batch, objects.begin(), Adopt<IWbemClassObject>);
        if (FAILED(status)) {
            return;
        }
        if (status != Hr(WBEM_S_NO_ERROR) && status != Hr(WBEM_S_FALSE) &&
            status != Hr(WBEM_S_TIMEDOUT)) {
            continue;
        }
        for (auto& object : objects) {
            if (object) {
                rows.push_back(std::make_shared<WmiRow>(std::move(object)));
            }
        }
    }
}

}  // namespace

Status WmiQueryPort::RunWqlQuery(std::string_view nameSpace, std::string_view query,
                                 platform::Rows& rows) const try {
    rows.clear();
    ComPtr<IWbemServices> services;
    ComPtr<IEnumWbemClassObject> results;
    HRESULT status = Connect(nameSpace, services);
    if (SUCCEEDED(status)) {
        status = Submit(*services.Get(), query, results);
    }
    if (FAILED(status)) {
        return ToStatus(status);
    }
    ReadAll(*results.Get(), rows);
    return Status::noError;
} catch (const RequestError& error) {
    rows.clear();
    return error.status();
} catch (const std::bad_alloc&) {
    // A truncated list would pass for a complete one: the monitor would report disks as gone.
    rows.clear();
    return Status::outOfMemory;
}

}  // namespace qv::windows
