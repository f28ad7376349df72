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
#include "qvsata/hosting/objects/ObjectReading.h"

namespace qv::service {
namespace {

using windows::Bstr;
using windows::ComPtr;
using windows::ToStatus;

constexpr LONG forever = -1;  // WBEM_INFINITE, which is unsigned
constexpr long queryFlags = WBEM_FLAG_RETURN_IMMEDIATELY | WBEM_FLAG_FORWARD_ONLY;

std::mutex liveMutex;

Bstr Wide(std::string_view text) {
    return Bstr(windows::ToWide(text, CP_UTF8));
}

/// Reads an enumeration of the machine to its end. A failure becomes the answer's status.
Answer ReadAll(IEnumWbemClassObject& live) {
    Answer answer;
    for (;;) {
        ComPtr<IWbemClassObject> object;
        ULONG returned = 0;
        const HRESULT result = live.Next(forever, 1, &object, &returned);
        if (FAILED(result)) {
            answer.status = ToStatus(result);
        }
        if (result != WBEM_S_NO_ERROR) {
            return answer;
        }
        answer.objects.push_back(ReadObject(*object.Get()));
    }
}

/// Runs one call to the machine's management service that opens an enumeration.
template <typename Call>
Answer ReadEnumeration(Call call) {
    const std::lock_guard lock(liveMutex);
    ComPtr<IEnumWbemClassObject> live;
    const HRESULT result = call(&live);
    if (FAILED(result)) {
        return {ToStatus(result), {}, {}};
    }
    return ReadAll(*live.Get());
}

class LiveServices final : public Services {
public:
    explicit LiveServices(ComPtr<IWbemServices> machine) : machine_(std::move(machine)) {}
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
        return ReadEnumeration([&](IEnumWbemClassObject** live) {
            return machine_->CreateInstanceEnum(Wide(className).Get(), queryFlags, nullptr, live);
        });
    }

    Answer Query(std::string_view wql) const override {
        return ReadEnumeration([&](IEnumWbemClassObject** live) {
            return machine_->ExecQuery(Bstr(L"WQL").Get(), Wide(wql).Get(), queryFlags, nullptr,
                                       live);
        });
    }

private:
    ComPtr<IWbemServices> machine_;
};

}  // namespace

Connector ConnectLive() {
    return [](std::string_view nameSpace) -> Connection {
        const std::lock_guard lock(liveMutex);
        ComPtr<IWbemLocator> locator;
        ComPtr<IWbemServices> machine;
        HRESULT result = CoCreateInstance(CLSID_WbemLocator, nullptr, CLSCTX_INPROC_SERVER,
                                          IID_PPV_ARGS(&locator));
        if (SUCCEEDED(result)) {
            result = locator->ConnectServer(Wide(nameSpace).Get(), nullptr, nullptr, nullptr, 0,
                                            nullptr, nullptr, &machine);
        }
        if (SUCCEEDED(result)) {
            result = CoSetProxyBlanket(machine.Get(), RPC_C_AUTHN_WINNT, RPC_C_AUTHZ_NONE, nullptr,
                                       RPC_C_AUTHN_LEVEL_CALL, RPC_C_IMP_LEVEL_IMPERSONATE, nullptr,
                                       EOAC_NONE);
            // Wine's management service runs in this process and has no proxy whose blanket could
            // be set.
            result = result == E_NOINTERFACE ? S_OK : result;
        }
        return SUCCEEDED(result)
                   ? Connection{Status::noError, std::make_shared<LiveServices>(std::move(machine))}
                   : Connection{ToStatus(result), nullptr};
    };
}

}  // namespace qv::service
