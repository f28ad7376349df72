#pragma once

#include <cstdint>
#include <string_view>

namespace qv {

/// What a capability code (Win32_DiskDrive.Capabilities) means; "Unknown" outside the table.
std::string_view GetCapabilityDescription(std::int32_t code);

}  // namespace qv
