#pragma once

namespace qv::tool {

/// Runs the whole program on the arguments of the process. Returns the exit code: 1 for what
/// failed, 2 for a wrong command line.
int RunProgram(int count, const char* const* arguments);

}  // namespace qv::tool
