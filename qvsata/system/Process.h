#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace qv::tool {

/// Returns the arguments of the process in UTF-8, without the program's name.
std::vector<std::string> Arguments(int count, const char* const* values);

/// Returns the folder of this program.
std::filesystem::path ProgramFolder();

}  // namespace qv::tool
