#include "qvsata/service/com/IndicationSink.h"

#include <algorithm>
#include <span>
#include <utility>

#include "platform/windows/WbemStatus.h"
#include "qvsata/service/com/Guarded.h"

namespace qv::service {

HRESULT IndicationSink::Indicate(LONG count, IWbemClassObject** objects) {
    if (count < 0 || (count > 0 && objects == nullptr)) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        const std::span delivered(objects, static_cast<std::size_t>(count));
        if (std::ranges::find(delivered, nullptr) != delivered.end()) {
            return windows::Hr(WBEM_E_INVALID_PARAMETER);
        }
        const windows::HeldMutex held(mutex_.Get());
        if (closed_) {
            return windows::Hr(WBEM_E_CALL_CANCELLED);
        }
        objects_.insert(objects_.end(), delivered.begin(), delivered.end());
        return WBEM_S_NO_ERROR;
    });
}

HRESULT IndicationSink::SetStatus(LONG, HRESULT, BSTR, IWbemClassObject*) {
    return WBEM_S_NO_ERROR;
}

ObjectList IndicationSink::Take() {
    const windows::HeldMutex held(mutex_.Get());
    return std::exchange(objects_, {});
}

void IndicationSink::Close() {
    const windows::HeldMutex held(mutex_.Get());
    closed_ = true;
}

}  // namespace qv::service
