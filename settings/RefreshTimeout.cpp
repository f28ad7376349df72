#include "settings/RefreshTimeout.h"

#include <charconv>
#include <cstddef>
#include <limits>
#include <system_error>

namespace qv {

std::uint32_t RefreshTimeoutOf(std::string_view stored) {
    constexpr std::size_t mostBytes = 255;
    if (stored.size() > mostBytes) {
        return 0;
    }
    std::uint32_t timeout = 0;
    const auto error = std::from_chars(stored.data(), stored.data() + stored.size(), timeout).ec;
    return error == std::errc::result_out_of_range ? std::numeric_limits<std::uint32_t>::max()
                                                   : timeout;
}

}  // namespace qv
