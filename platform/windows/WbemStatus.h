#pragma once

#include <wbemcli.h>
#include <windows.h>

namespace qv::windows {

/// A code of the management service as the HRESULT that operations return; wbemcli.h has the codes
/// as an unsigned enumeration.
constexpr HRESULT Hr(WBEMSTATUS status) {
    return static_cast<HRESULT>(status);
}

}  // namespace qv::windows
