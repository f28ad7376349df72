#include "wmiUtil/RefreshTimeout.h"

#include "platform/windows/RegistryKey.h"
#include "settings/RefreshTimeout.h"
#include "settings/StoredValue.h"

namespace qv {

std::uint32_t ReadRefreshTimeout() {
    const auto key = windows::RegistryKey::OpenLocalMachine(
        L"SOFTWARE\\Corvane\\WMI Providers\\SA", KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS);
    StoredValue stored;
    if (!key || key.Read(L"RefreshTimeout", stored) != ERROR_SUCCESS) {
        return 0;
    }
    return RefreshTimeoutOf(stored.bytes);
}

}  // namespace qv
