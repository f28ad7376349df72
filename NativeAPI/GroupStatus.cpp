#include "NativeAPI/GroupStatus.h"

namespace qv {
namespace {

constexpr GroupStatus ok{2, "OK"};
constexpr GroupStatus degraded{3, "Degraded"};
constexpr GroupStatus error{6, "Error"};
constexpr std::int32_t unknownCode = 0;

// Not the worse of both, on purpose: an OK or degraded disk after a failed one resets the group to
// OK.
GroupStatus Next(const GroupStatus& group, std::int32_t diskCode) {
    if (diskCode == unknownCode) {
        return group;
    }
    if (diskCode == error.code) {
        return error;
    }
    return diskCode == degraded.code && group != error ? degraded : ok;
}

}  // namespace

GroupStatus RollUp(std::span<const std::optional<std::int32_t>> diskCodes) {
    GroupStatus group = ok;
    std::int32_t current = ok.code;
    for (const auto& code : diskCodes) {
        current = code.value_or(current);
        group = Next(group, current);
    }
    return group;
}

}  // namespace qv
