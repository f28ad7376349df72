#include "qvsata/hosting/EventSubscription.h"

#include <wbemprov.h>

#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "provider/public/ClassIds.h"
#include "qvsata/hosting/ProviderInit.h"
#include "qvsata/hosting/ServedThread.h"

namespace qv::service {
namespace {

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
    : provider_(host.Create(provider::eventProviderId)) {
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
