#include "qvsata/hosting/ResponseSink.h"

#include <span>
#include <utility>

#include "qvsata/hosting/objects/Delivery.h"
#include "qvsata/hosting/objects/ObjectReading.h"

namespace qv::service {

HRESULT ResponseSink::Indicate(LONG count, IWbemClassObject** objects) {
    return TakeDelivery(count, objects, [this](std::span<IWbemClassObject*> delivered) -> HRESULT {
        const std::lock_guard lock(mutex_);
        for (IWbemClassObject* object : delivered) {
            objects_.push_back(ReadObject(*object));
        }
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
