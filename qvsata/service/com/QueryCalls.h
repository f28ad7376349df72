#pragma once

#include <windows.h>

#include <wbemcli.h>

#include <string>

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/service/com/Answer.h"
#include "qvsata/service/com/Guarded.h"

namespace qv::service {

// The bodies of IWbemServices' reading operations: `ask` takes the call's text in UTF-8 and gives
// an Answer, which goes to the out parameter.

template <typename Ask>
HRESULT GiveObjects(const BSTR text, IEnumWbemClassObject** objects, Ask ask) {
    if (text == nullptr || objects == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    *objects = nullptr;
    return Guarded([&]() -> HRESULT {
        Answer answer = ask(windows::ToNarrow(windows::Bstr::ViewOf(text), CP_UTF8));
        if (SUCCEEDED(answer.status)) {
            *objects = windows::MakeObject<Enumerator>(std::move(answer.objects)).Detach();
        }
        return answer.status;
    });
}

template <typename Ask>
HRESULT GiveQueryResult(const BSTR language, const BSTR query, IEnumWbemClassObject** objects,
                        Ask ask) {
    if (language == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    if (_wcsicmp(language, L"WQL") != 0) {
        return windows::Hr(WBEM_E_INVALID_QUERY_TYPE);
    }
    return GiveObjects(query, objects, ask);
}

/// For an answer of one object; an empty one is WBEM_E_NOT_FOUND.
template <typename Ask>
HRESULT GiveObject(const BSTR path, IWbemClassObject** object, Ask ask) {
    if (path == nullptr || object == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    *object = nullptr;
    return Guarded([&]() -> HRESULT {
        Answer answer = ask(windows::ToNarrow(windows::Bstr::ViewOf(path), CP_UTF8));
        if (FAILED(answer.status)) {
            return answer.status;
        }
        if (answer.objects.empty()) {
            return windows::Hr(WBEM_E_NOT_FOUND);
        }
        *object = answer.objects.front().Detach();
        return answer.status;
    });
}

}  // namespace qv::service
