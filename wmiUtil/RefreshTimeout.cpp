#include "wmiUtil/RefreshTimeout.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <limits>
#include <span>
#include <system_error>

#include "platform/windows/RegistryKey.h"

namespace qv {

std::uint32_t ReadRefreshTimeout() {
    const auto key = windows::RegistryKey::OpenLocalMachine(
        L"SOFTWARE\\Corvane\\WMI Providers\\SA", KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS);
    std::array<char, 255> stored{};
    std::size_t size = 0;
    if (!key || key.ReadBytes(L"RefreshTimeout", std::as_writable_bytes(std::span(stored)), size) !=
                    ERROR_SUCCESS) {
        return 0;
    }
    std::uint32_t timeout = 0;
    // A number with too many digits becomes the largest one.
    if (std::from_chars(stored.data(), stored.data() + size, timeout).ec ==
        std::errc::result_out_of_range) {
        timeout = std::numeric_limits<std::uint32_t>::max();
    }
    return timeout;
}

}  // namespace qv
