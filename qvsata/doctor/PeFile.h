#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace qv::doctor {

/// Returns the machine for which a program or library is (IMAGE_FILE_HEADER.Machine); nothing if
/// the first bytes of the file are not those of one.
std::optional<std::uint16_t> MachineOf(std::string_view bytes);

}  // namespace qv::doctor
