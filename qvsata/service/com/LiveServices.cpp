#include "qvsata/service/com/LiveServices.h"

#include <mutex>

#include "qvsata/service/com/QueryCalls.h"
#include "qvsata/service/com/SnapshotObject.h"

namespace qv::service {
namespace {

using windows::Bstr;
using windows::ComPtr;

constexpr LONG forever = -1;  // WBEM_INFINITE, which is unsigned

std::mutex liveMutex;

ComPtr<IWbemClassObject> Read(IWbemClassObject& object) {
    return windows::MakeObject<SnapshotObject>(SnapshotOf(object));
}

/// Reads an enumeration of the machine to its end. What failed it is the answer's status.
Answer ReadAll(IEnumWbemClassObject& live) {
    Answer answer;
    for (;;) {
        ComPtr<IWbemClassObject> object;
        ULONG returned = 0;
        const HRESULT result = live.Next(forever, 1, &object, &returned);
        if (FAILED(result)) {
            answer.status = result;
        }
        if (result != WBEM_S_NO_ERROR) {
            return answer;
        }
        answer.objects.push_back(Read(*object.Get()));
    }
}

/// Runs one call of the machine's management service that gives an enumeration.
template <typename Call>
Answer Enumerate(Call call) {
    const std::lock_guard lock(liveMutex);
    ComPtr<IEnumWbemClassObject> live;
    const HRESULT result = call(&live);
    if (FAILED(result)) {
        return {result, {}, {}};
    }
    return ReadAll(*live.Get());
}

Bstr Wide(const std::string& text) {
    return Bstr(windows::ToWide(text, CP_UTF8));
}

}  // namespace

HRESULT LiveServices::Connect(const BSTR nameSpace, ComPtr<IWbemServices>& services) {
    const std::lock_guard lock(liveMutex);
    ComPtr<IWbemLocator> locator;
    ComPtr<IWbemServices> machine;
    HRESULT result =
        CoCreateInstance(CLSID_WbemLocator, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&locator));
    if (SUCCEEDED(result)) {
        result = locator->ConnectServer(nameSpace, nullptr, nullptr, nullptr, 0, nullptr, nullptr,
                                        &machine);
    }
    if (SUCCEEDED(result)) {
        result = CoSetProxyBlanket(machine.Get(), RPC_C_AUTHN_WINNT, RPC_C_AUTHZ_NONE, nullptr,
                                   RPC_C_AUTHN_LEVEL_CALL, RPC_C_IMP_LEVEL_IMPERSONATE, nullptr,
                                   EOAC_NONE);
        // Wine's management service runs in this process and has no proxy to set.
        result = result == E_NOINTERFACE ? S_OK : result;
    }
    if (SUCCEEDED(result)) {
        services = windows::MakeObject<LiveServices>(std::move(machine));
    }
    return result;
}

LiveServices::~LiveServices() {
    const std::lock_guard lock(liveMutex);
    machine_.Reset();
}

HRESULT LiveServices::GetObject(const BSTR path, long flags, IWbemContext*,
                                IWbemClassObject** object, IWbemCallResult**) {
    return GiveObject(path, object, [&](const std::string& text) -> Answer {
        const std::lock_guard lock(liveMutex);
        ComPtr<IWbemClassObject> live;
        const HRESULT result =
            machine_->GetObject(Wide(text).Get(), flags, nullptr, &live, nullptr);
        if (FAILED(result)) {
            return {result, {}, {}};
        }
        return {result, {}, {Read(*live.Get())}};
    });
}

HRESULT LiveServices::CreateInstanceEnum(const BSTR className, long flags, IWbemContext*,
                                         IEnumWbemClassObject** objects) {
    return GiveObjects(className, objects, [&](const std::string& name) {
        return Enumerate([&](IEnumWbemClassObject** live) {
            return machine_->CreateInstanceEnum(Wide(name).Get(), flags, nullptr, live);
        });
    });
}

HRESULT LiveServices::ExecQuery(const BSTR language, const BSTR query, long flags, IWbemContext*,
                                IEnumWbemClassObject** objects) {
    return GiveQueryResult(language, query, objects, [&](const std::string& wql) {
        return Enumerate([&](IEnumWbemClassObject** live) {
            return machine_->ExecQuery(Bstr(L"WQL").Get(), Wide(wql).Get(), flags, nullptr, live);
        });
    });
}

}  // namespace qv::service
