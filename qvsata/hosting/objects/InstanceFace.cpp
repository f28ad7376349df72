#include "qvsata/hosting/objects/InstanceFace.h"

#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/hosting/objects/CimVariantReader.h"
#include "qvsata/hosting/objects/Guarded.h"

namespace qv::service {

HRESULT InstanceFace::Put(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE type) {
    if (name == nullptr || flags != 0 || type != 0) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        PutValue put = value == nullptr ? PutValue{} : ReadPut(*value);
        return windows::ToHresult(
            PutOn(*instance_, windows::ToNarrow(name, CP_UTF8), std::move(put)));
    });
}

HRESULT InstanceFace::Delete(LPCWSTR name) {
    if (name == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        if (!instance_->Reset(windows::ToNarrow(name, CP_UTF8))) {
            return windows::Hr(WBEM_E_NOT_FOUND);
        }
        return WBEM_S_RESET_TO_DEFAULT;
    });
}

HRESULT InstanceFace::Clone(IWbemClassObject** copy) {
    if (copy == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        *copy = windows::MakeObject<InstanceFace>(std::make_shared<Instance>(*instance_)).Detach();
        return WBEM_S_NO_ERROR;
    });
}

}  // namespace qv::service
