#pragma once

#include <wbemcli.h>
#include <windows.h>

#include "platform/Status.h"

namespace qv::windows {

/// Returns a management service code as the HRESULT that operations return; wbemcli.h declares the
/// codes as an unsigned enumeration.
constexpr HRESULT Hr(WBEMSTATUS status) {
    return static_cast<HRESULT>(status);
}

/// Returns the same code in the other type.
constexpr HRESULT ToHresult(Status status) {
    return static_cast<HRESULT>(status);
}
constexpr Status ToStatus(HRESULT result) {
    return static_cast<Status>(result);
}

/// Throws RequestError with the status of a failed call.
inline void ThrowIfFailed(HRESULT result) {
    if (FAILED(result)) {
        throw RequestError(ToStatus(result));
    }
}

}  // namespace qv::windows
