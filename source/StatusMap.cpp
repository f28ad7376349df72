#include "source/StatusMap.h"

#include <algorithm>
#include <array>

namespace qv {
namespace {

struct StatusCode {
    std::string_view text;  ///< compared exactly, letter case included
    std::int32_t code;
};

// "Service" counts as OK, "Stressed" as degraded, on purpose.
constexpr std::array statusCodes{
    StatusCode{"OK", 2},        StatusCode{"Error", 6},      StatusCode{"Degraded", 3},
    StatusCode{"Unknown", 0},   StatusCode{"Pred Fail", 5},  StatusCode{"Service", 2},
    StatusCode{"Stressed", 3},  StatusCode{"NonRecover", 6}, StatusCode{"No Contact", 0},
    StatusCode{"Lost Comm", 6},
};

}  // namespace

std::int32_t MapStatusToOperationalStatus(std::string_view status, std::vector<std::string>& codes,
                                          std::vector<std::string>& descriptions) {
    descriptions.emplace_back(status);
    const auto found = std::ranges::find(statusCodes, status, &StatusCode::text);
    if (found == statusCodes.end()) {
        return 0;
    }
    codes.push_back(std::to_string(found->code));
    return found->code;
}

}  // namespace qv
