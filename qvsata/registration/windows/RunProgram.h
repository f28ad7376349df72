#pragma once

#include <filesystem>
#include <string>

#include "qvsata/registration/Installer.h"

namespace qv::tool {

/// Runs a console program with one argument, without a window and without input, and waits for its
/// end. Both paths are absolute.
Compilation RunProgram(const std::filesystem::path& program, const std::filesystem::path& argument);

}  // namespace qv::tool
