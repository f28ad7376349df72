#include "qvsata/hosting/objects/Enumerator.h"

#include <algorithm>

#include "platform/windows/WbemStatus.h"
#include "qvsata/hosting/objects/Guarded.h"
#include "qvsata/hosting/objects/ObjectFace.h"

namespace qv::service {

HRESULT Enumerator::Reset() {
    next_ = 0;
    return WBEM_S_NO_ERROR;
}

HRESULT Enumerator::Next(LONG, ULONG count, IWbemClassObject** objects, ULONG* returned) {
    if (objects == nullptr || returned == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    *returned = 0;
    return Guarded([&]() -> HRESULT {
        while (*returned < count && next_ < objects_->size()) {
            objects[*returned] = FaceOf((*objects_)[next_]).Detach();
            ++*returned;
            ++next_;
        }
        return *returned == count ? WBEM_S_NO_ERROR : WBEM_S_FALSE;
    });
}

HRESULT Enumerator::NextAsync(ULONG, IWbemObjectSink*) {
    return windows::Hr(WBEM_E_NOT_SUPPORTED);
}

HRESULT Enumerator::Clone(IEnumWbemClassObject** copy) {
    if (copy == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        *copy = windows::MakeObject<Enumerator>(objects_, next_).Detach();
        return WBEM_S_NO_ERROR;
    });
}

HRESULT Enumerator::Skip(LONG, ULONG count) {
    const std::size_t skipped = std::min<std::size_t>(count, objects_->size() - next_);
    next_ += skipped;
    return skipped == count ? WBEM_S_NO_ERROR : WBEM_S_FALSE;
}

}  // namespace qv::service
