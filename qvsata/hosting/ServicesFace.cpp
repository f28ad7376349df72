#include "qvsata/hosting/ServicesFace.h"

#include <string>
#include <utility>

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/hosting/objects/Enumerator.h"
#include "qvsata/hosting/objects/Guarded.h"
#include "qvsata/hosting/objects/ObjectFace.h"

namespace qv::service {
namespace {

std::string Utf8(const BSTR text) {
    return windows::ToNarrow(windows::Bstr::ViewOf(text), CP_UTF8);
}

/// Returns an enumerator over the objects of the answer that `ask` returns.
template <typename Ask>
HRESULT HandOverObjects(const BSTR text, IEnumWbemClassObject** objects, Ask ask) {
    if (text == nullptr || objects == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    *objects = nullptr;
    return Guarded([&]() -> HRESULT {
        Answer answer = ask(Utf8(text));
        if (Succeeded(answer.status)) {
            *objects = windows::MakeObject<Enumerator>(std::move(answer.objects)).Detach();
        }
        return windows::ToHresult(answer.status);
    });
}

}  // namespace

HRESULT ServicesFace::GetObject(const BSTR path, long, IWbemContext*, IWbemClassObject** object,
                                IWbemCallResult**) {
    if (path == nullptr || object == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    *object = nullptr;
    return Guarded([&]() -> HRESULT {
        const Answer answer = services_->Get(Utf8(path));
        if (Succeeded(answer.status) && answer.objects.empty()) {
            return windows::Hr(WBEM_E_NOT_FOUND);
        }
        if (Succeeded(answer.status)) {
            *object = FaceOf(answer.objects.front()).Detach();
        }
        return windows::ToHresult(answer.status);
    });
}

HRESULT ServicesFace::CreateInstanceEnum(const BSTR className, long, IWbemContext*,
                                         IEnumWbemClassObject** objects) {
    return HandOverObjects(className, objects,
                           [this](const std::string& name) { return services_->Enumerate(name); });
}

HRESULT ServicesFace::ExecQuery(const BSTR language, const BSTR query, long, IWbemContext*,
                                IEnumWbemClassObject** objects) {
    if (language == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    if (_wcsicmp(language, L"WQL") != 0) {
        return windows::Hr(WBEM_E_INVALID_QUERY_TYPE);
    }
    return HandOverObjects(query, objects,
                           [this](const std::string& wql) { return services_->Query(wql); });
}

}  // namespace qv::service
