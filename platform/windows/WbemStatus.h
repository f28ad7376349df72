#pragma once

#include <wbemcli.h>
#include <windows.h>

#include "platform/Status.h"

namespace qv::windows {

/// A code of the management service as the HRESULT that operations return; wbemcli.h has the codes
/// as an unsigned enumeration.
constexpr HRESULT Hr(WBEMSTATUS status) {
    return static_cast<HRESULT>(status);
}

/// The same code in both types.
constexpr HRESULT ToHresult(Status status) {
    return static_cast<HRESULT>(status);
}
constexpr Status ToStatus(HRESULT result) {
    return static_cast<Status>(result);
}

/// Raises RequestError with the status of a call that failed.
inline void ThrowIfFailed(HRESULT result) {
    if (FAILED(result)) {
        throw RequestError(ToStatus(result));
    }
}

}  // namespace qv::windows
