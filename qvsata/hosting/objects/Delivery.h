#pragma once

#include <windows.h>

#include <wbemcli.h>

#include <algorithm>
#include <span>

#include "platform/windows/WbemStatus.h"
#include "qvsata/hosting/objects/Guarded.h"

namespace qv::service {

/// Implements IWbemObjectSink::Indicate: passes the objects to `take`, which returns a status.
/// Returns WBEM_E_INVALID_PARAMETER without calling `take` for a negative count, a missing array,
/// or a null among the objects.
template <typename Take>
HRESULT TakeDelivery(LONG count, IWbemClassObject** objects, Take take) noexcept {
    if (count < 0 || (count > 0 && objects == nullptr)) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        const std::span delivered(objects, static_cast<std::size_t>(count));
        return std::ranges::find(delivered, nullptr) != delivered.end()
                   ? windows::Hr(WBEM_E_INVALID_PARAMETER)
                   : take(delivered);
    });
}

}  // namespace qv::service
