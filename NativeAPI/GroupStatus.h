#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace qv {

/// The consolidated status of a group of disks: a CIM OperationalStatus code and its text.
struct GroupStatus {
    std::int32_t code = 2;
    std::string_view text = "OK";

    bool operator==(const GroupStatus&) const = default;
};

/// Returns the status of a group from the OperationalStatus codes of its disks, in their order. A
/// disk without a code counts as the disk before it. A group without codes is OK.
GroupStatus RollUp(std::span<const std::optional<std::int32_t>> diskCodes);

}  // namespace qv
