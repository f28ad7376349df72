#include "qvsata/hosting/LiveMachine.h"

#include <windows.h>

#include <objbase.h>
#include <wbemcli.h>

#include <mutex>
#include <utility>

#include "platform/windows/Bstr.h"
#include "platform/windows/ComObject.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/hosting/LiveEnumeration.h"
#include "qvsata/hosting/objects/ObjectReading.h"

namespace qv::service {
namespace {

using windows::Bstr;
using windows::ComPtr;
using windows::ToStatus;

constexpr long queryFlags = WBEM_FLAG_RETURN_IMMEDIATELY | WBEM_FLAG_FORWARD_ONLY;

std::mutex liveMutex;

Bstr Wide(std::string_view text) {
    return Bstr(windows::ToWide(text, CP_UTF8));
}

class LiveServices final : public Services {
public:
    LiveServices(ComPtr<IWbemServices> machine, std::optional<std::chrono::milliseconds> timeout)
        : machine_(std::move(machine)), timeout_(timeout) {}
    LiveServices(const LiveServices&) = delete;
    LiveServices& operator=(const LiveServices&) = delete;
    ~LiveServices() override {
        const std::lock_guard lock(liveMutex);
        machine_.Reset();
    }

    Answer Get(std::string_view path) const override {
        const std::lock_guard lock(liveMutex);
        ComPtr<IWbemClassObject> live;
        const HRESULT result = machine_->GetObject(Wide(path).Get(), 0, nullptr, &live, nullptr);
        if (FAILED(result)) {
            return {ToStatus(result), {}, {}};
        }
        return {ToStatus(result), {}, {ReadObject(*live.Get())}};
    }

    Answer Enumerate(std::string_view className) const override {
        return Read([&](IEnumWbemClassObject** live) {
            return machine_->CreateInstanceEnum(Wide(className).Get(), queryFlags, nullptr, live);
        });
    }

    Answer Query(std::string_view wql) const override {
        return Read([&](IEnumWbemClassObject** live) {
            return machine_->ExecQuery(Bstr(L"WQL").Get(), Wide(wql).Get(), queryFlags, nullptr,
                                       live);
        });
    }

private:
    /// Runs one call to the machine's management service that opens an enumeration.
    template <typename Call>
    Answer Read(Call call) const {
        const std::lock_guard lock(liveMutex);
        ComPtr<IEnumWbemClassObject> live;
        const HRESULT result = call(&live);
        if (FAILED(result)) {
            return {ToStatus(result), {}, {}};
        }
        return ReadEnumeration(*live.Get(), timeout_);
    }

    ComPtr<IWbemServices> machine_;
    std::optional<std::chrono::milliseconds> timeout_;
};

}  // namespace

Connector ConnectLive(std::optional<std::chrono::milliseconds> timeout) {
    return [timeout](std::string_view nameSpace) -> Connection {
        const std::lock_guard lock(liveMutex);
        ComPtr<IWbemLocator> locator;
        ComPtr<IWbemServices> machine;
        HRESULT result = CoCreateInstance(CLSID_WbemLocator, nullptr, CLSCTX_INPROC_SERVER,
                                          IID_PPV_ARGS(&locator));
        if (SUCCEEDED(result)) {
            result = locator->ConnectServer(Wide(nameSpace).Get(), nullptr, nullptr, nullptr,
                                            timeout ? WBEM_FLAG_CONNECT_USE_MAX_WAIT : 0, nullptr,
                                            nullptr, &machine);
        }
        if (SUCCEEDED(result)) {
            result = CoSetProxyBlanket(machine.Get(), RPC_C_AUTHN_WINNT, RPC_C_AUTHZ_NONE, nullptr,
                                       RPC_C_AUTHN_LEVEL_CALL, RPC_C_IMP_LEVEL_IMPERSONATE, nullptr,
                                       EOAC_NONE);
            // Wine's management service runs in this process and has no proxy whose blanket could
            // be set.
            result = result == E_NOINTERFACE ? S_OK : result;
        }
        return SUCCEEDED(result) ? Connection{Status::noError, std::make_shared<LiveServices>(
                                                                   std::move(machine), timeout)}
                                 : Connection{ToStatus(result), nullptr};
    };
}

}  // namespace qv::service
