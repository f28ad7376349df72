#pragma once

#include <string>
#include <vector>

namespace qv::tool {

/// Runs one command line, given in UTF-8 without the program's name. Returns the exit code.
int RunCommand(std::vector<std::string> arguments);

/// Runs the program on the arguments of the process. Returns the exit code, see
/// ExitCodes.h.
int RunProgram(int count, const char* const* arguments);

}  // namespace qv::tool
