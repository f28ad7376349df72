#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "qvsata/cim/Utf8.h"

namespace qv::service {

/// Throws std::system_error, "FILE: error NUMBER: TEXT".
[[noreturn]] inline void ThrowSystemError(DWORD error, const std::filesystem::path& file) {
    throw std::system_error(static_cast<int>(error), std::system_category(),
                            Utf8OfPath(file) + ": error " + std::to_string(error));
}

}  // namespace qv::service
