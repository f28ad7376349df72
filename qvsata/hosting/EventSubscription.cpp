#include "qvsata/hosting/EventSubscription.h"

#include <wbemprov.h>

#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/hosting/ProviderInit.h"
#include "qvsata/hosting/ServedThread.h"

namespace qv::service {
namespace {

// {9C4E7B21-0D3A-4F6B-8E15-2A9C6D3F7B40}, as the MOF of the provider names it
constexpr CLSID eventProviderId{
    0x9C4E7B21, 0x0D3A, 0x4F6B, {0x8E, 0x15, 0x2A, 0x9C, 0x6D, 0x3F, 0x7B, 0x40}};

HRESULT CheckAccess(IUnknown& provider) {
    windows::ComPtr<IWbemEventProviderSecurity> security;
    const HRESULT result = provider.QueryInterface(IID_PPV_ARGS(&security));
    return FAILED(result) ? result
                          : security->AccessCheck(L"WQL", L"SELECT * FROM QV_SATADeviceIndication",
                                                  0, nullptr);
}

HRESULT AskForEvents(IUnknown& provider, IWbemObjectSink& sink) {
    windows::ComPtr<IWbemEventProvider> events;
    const HRESULT result = provider.QueryInterface(IID_PPV_ARGS(&events));
    return FAILED(result) ? result : events->ProvideEvents(&sink, 0);
}

}  // namespace

EventSubscription::EventSubscription(const ManagementHost& host)
    : provider_(host.Create(eventProviderId)) {
    const auto services = host.Connect();
    const std::wstring nameSpace = windows::ToWide(host.Published().Name());
    HRESULT result = WBEM_S_NO_ERROR;
    RunAsServedCall(SecurityImpersonation, [&] {
        result = InitializeProvider(*provider_.Get(), nameSpace, *services.Get());
        if (SUCCEEDED(result)) {
            result = CheckAccess(*provider_.Get());
        }
        if (SUCCEEDED(result)) {
            result = AskForEvents(*provider_.Get(), *sink_.Get());
        }
    });
    windows::ThrowIfFailed(result);
}

EventSubscription::~EventSubscription() {
    End();
}

void EventSubscription::End() {
    sink_->Close();
    provider_.Reset();
}

}  // namespace qv::service
