#include "qvsata/service/com/ResponseSink.h"

#include <algorithm>
#include <span>

#include "platform/windows/WbemStatus.h"
#include "qvsata/service/com/Guarded.h"

namespace qv::service {

HRESULT ResponseSink::Indicate(LONG count, IWbemClassObject** objects) {
    if (count < 0 || (count > 0 && objects == nullptr)) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        const std::span delivered(objects, static_cast<std::size_t>(count));
        if (std::ranges::find(delivered, nullptr) != delivered.end()) {
            return windows::Hr(WBEM_E_INVALID_PARAMETER);
        }
        const std::lock_guard lock(mutex_);
        objects_.insert(objects_.end(), delivered.begin(), delivered.end());
        return WBEM_S_NO_ERROR;
    });
}

HRESULT ResponseSink::SetStatus(LONG flags, HRESULT status, BSTR, IWbemClassObject*) {
    if (flags == WBEM_STATUS_COMPLETE) {
        const std::lock_guard lock(mutex_);
        completed_ = status;
        ++completions_;
    }
    return WBEM_S_NO_ERROR;
}

void ResponseSink::Deliver(ProviderAnswer& answer) {
    const std::lock_guard lock(mutex_);
    answer.completed = completed_;
    answer.completions = completions_;
    answer.objects = std::exchange(objects_, {});
}

}  // namespace qv::service
