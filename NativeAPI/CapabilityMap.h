#pragma once

#include <cstdint>
#include <string_view>

namespace qv {

/// Returns the meaning of a capability code (Win32_DiskDrive.Capabilities); "Unknown" for a code
/// outside the table.
std::string_view GetCapabilityDescription(std::int32_t code);

}  // namespace qv
