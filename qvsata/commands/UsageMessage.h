#pragma once

#include <string>

#include "CLI/CLI.hpp"

namespace qv::tool {

/// Returns what is wrong with the command line, as a line without its end: "unknown command 'topo';
/// did you mean 'topology'?".
/// @param program what parsed the command line
/// @param error what it threw
std::string UsageMessage(const CLI::App& program, const CLI::ParseError& error);

}  // namespace qv::tool
