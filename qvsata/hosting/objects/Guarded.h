#pragma once

#include <windows.h>

#include <wbemcli.h>

#include <exception>
#include <new>

#include "platform/Status.h"
#include "platform/windows/WbemStatus.h"

namespace qv::service {

/// Runs the body of an interface method, which must not throw to its caller. Returns the body's
/// status, or the status of the exception that ended it.
template <typename Body>
HRESULT Guarded(Body body) noexcept try {
    return body();
} catch (const RequestError& error) {
    return windows::ToHresult(error.status());
} catch (const std::bad_alloc&) {
    return windows::Hr(WBEM_E_OUT_OF_MEMORY);
} catch (const std::exception&) {
    return windows::Hr(WBEM_E_FAILED);
}

}  // namespace qv::service
