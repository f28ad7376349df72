#include "qvsata/hosting/IndicationSink.h"

#include <span>
#include <utility>

#include "platform/windows/WbemStatus.h"
#include "qvsata/hosting/objects/Delivery.h"
#include "qvsata/hosting/objects/ObjectReading.h"

namespace qv::service {

HRESULT IndicationSink::Indicate(LONG count, IWbemClassObject** objects) {
    return TakeDelivery(count, objects, [this](std::span<IWbemClassObject*> delivered) -> HRESULT {
        const windows::HeldMutex held(mutex_.Get());
        if (closed_) {
            return windows::Hr(WBEM_E_CALL_CANCELLED);
        }
        for (IWbemClassObject* object : delivered) {
            objects_.push_back(ReadObject(*object));
        }
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
