#pragma once

#include <string>
#include <vector>

namespace qv::tool {

/// Runs one command line, without the program's name, in UTF-8. Returns the exit code.
int RunCommand(std::vector<std::string> arguments);

/// Runs the whole program on the arguments of the process. Returns the exit code: 1 for what
/// failed, 2 for a wrong command line.
int RunProgram(int count, const char* const* arguments);

}  // namespace qv::tool
