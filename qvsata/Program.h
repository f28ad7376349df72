#pragma once

namespace qv::tool {

/// The whole program, on the arguments of the process. Gives the exit code: 1 for what failed, 2
/// for a wrong command line.
int RunProgram();

}  // namespace qv::tool
