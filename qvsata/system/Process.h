#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace qv::tool {

/// Returns the arguments of the process in UTF-8, without the program's name.
std::vector<std::string> Arguments(int count, const char* const* values);

/// Returns the folder that this program lies in.
std::filesystem::path ProgramFolder();

}  // namespace qv::tool
