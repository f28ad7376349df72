#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Status.h"
#include "qvsata/registration/Installer.h"

namespace qv::tool {

/// Returns the status codes that the compiler's messages contain, in order. The form of its
/// messages is not documented; the last code is the one that ended the compilation.
std::vector<Status> StatusesIn(const Compilation& compilation);

/// Returns why a compilation failed: the compiler's exit code and what it means, the name of the
/// last status, and the last line of its messages; empty if it succeeded.
/// @param accepted a status that is a success, too, wherever the messages contain it
std::string WhyNotCompiled(const Compilation& compilation, std::optional<Status> accepted);

}  // namespace qv::tool
