#pragma once

#include <optional>
#include <string>

#include "platform/Status.h"
#include "qvsata/registration/Installer.h"

namespace qv::tool {

/// Returns the status of a failed compilation: the last one that the compiler's messages contain.
std::optional<Status> StatusOf(const Compilation& compilation);

/// Returns why a compilation failed: the compiler's exit code and what it means, the name of the
/// status, and the last line of its messages; empty if it succeeded.
/// @param accepted a status that is a success, too
std::string WhyNotCompiled(const Compilation& compilation, std::optional<Status> accepted);

}  // namespace qv::tool
