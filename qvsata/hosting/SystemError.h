#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace qv::service {

/// Throws std::system_error, "FILE: error NUMBER: TEXT".
[[noreturn]] inline void ThrowSystemError(DWORD error, const std::filesystem::path& file) {
    const std::u8string name = file.u8string();
    throw std::system_error(
        static_cast<int>(error), std::system_category(),
        std::string(name.begin(), name.end()) + ": error " + std::to_string(error));
}

}  // namespace qv::service
