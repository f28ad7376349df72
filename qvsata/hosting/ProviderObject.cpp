#include "qvsata/hosting/ProviderObject.h"

#include <new>

#include "platform/Status.h"
#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/hosting/ProviderInit.h"
#include "qvsata/hosting/ResponseSink.h"
#include "qvsata/hosting/ServedThread.h"

namespace qv::service {
namespace {

using windows::Bstr;
using windows::ComPtr;

Bstr WideText(std::string_view text) {
    return Bstr(windows::ToWide(text, CP_UTF8));
}

}  // namespace

HRESULT ProviderAnswer::Status() const {
    if (completed) {
        return *completed;
    }
    return FAILED(returned) ? returned : windows::Hr(WBEM_E_PROVIDER_FAILURE);
}

ProviderObject::ProviderObject(const ComPtr<IUnknown>& provider, std::wstring_view nameSpace,
                               IWbemServices& services) {
    HRESULT result = windows::Hr(WBEM_E_FAILED);
    RunAsServedCall(level_, [&] {
        result = InitializeProvider(*provider.Get(), nameSpace, services);
        if (SUCCEEDED(result)) {
            result = provider->QueryInterface(IID_PPV_ARGS(&services_));
        }
    });
    windows::ThrowIfFailed(result);
}

ProviderAnswer ProviderObject::Request(const Call& call) const {
    ProviderAnswer answer;
    const auto sink = windows::MakeObject<ResponseSink>();
    try {
        RunAsServedCall(level_, [&] { answer.returned = call(*services_.Get(), sink.Get()); });
    } catch (const RequestError& error) {
        answer.returned = windows::ToHresult(error.status());
        answer.exception = error.what();
    } catch (const std::bad_alloc& error) {
        answer.returned = E_OUTOFMEMORY;
        answer.exception = error.what();
    } catch (const std::exception& error) {
        answer.returned = windows::Hr(WBEM_E_PROVIDER_FAILURE);
        answer.exception = error.what();
    }
    sink->Deliver(answer);
    return answer;
}

ProviderAnswer ProviderObject::Enumerate(std::string_view className) const {
    const Bstr name = WideText(className);
    return Request([&](IWbemServices& provider, IWbemObjectSink* sink) {
        return provider.CreateInstanceEnumAsync(name.Get(), 0, nullptr, sink);
    });
}

ProviderAnswer ProviderObject::Get(std::string_view path) const {
    const Bstr text = WideText(path);
    return Request([&](IWbemServices& provider, IWbemObjectSink* sink) {
        return provider.GetObjectAsync(text.Get(), 0, nullptr, sink);
    });
}

ProviderAnswer ProviderObject::Query(std::string_view wql) const {
    const Bstr language(L"WQL");
    const Bstr text = WideText(wql);
    return Request([&](IWbemServices& provider, IWbemObjectSink* sink) {
        return provider.ExecQueryAsync(language.Get(), text.Get(), 0, nullptr, sink);
    });
}

}  // namespace qv::service
