#include "qvsata/hosting/ProviderInit.h"

#include <wbemprov.h>

#include <optional>
#include <string>

#include "platform/windows/ComObject.h"
#include "platform/windows/WbemStatus.h"

namespace qv::service {
namespace {

/// Receives the status that a provider reports when it is initialised.
class InitSink final : public windows::ComObject<IWbemProviderInitSink> {
public:
    STDMETHODIMP SetStatus(LONG status, LONG) override {
        reported_ = status;
        return WBEM_S_NO_ERROR;
    }
    std::optional<LONG> Reported() const { return reported_; }

private:
    std::optional<LONG> reported_;
};

}  // namespace

HRESULT InitializeProvider(IUnknown& provider, std::wstring_view nameSpace,
                           IWbemServices& services) {
    windows::ComPtr<IWbemProviderInit> init;
    if (const HRESULT result = provider.QueryInterface(IID_PPV_ARGS(&init)); FAILED(result)) {
        return result;
    }
    const auto sink = windows::MakeObject<InitSink>();
    std::wstring name(nameSpace);
    const HRESULT returned =
        init->Initialize(nullptr, 0, name.data(), nullptr, &services, nullptr, sink.Get());
    if (FAILED(returned)) {
        return returned;
    }
    return sink->Reported().value_or(windows::Hr(WBEM_E_PROVIDER_FAILURE));
}

}  // namespace qv::service
