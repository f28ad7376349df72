#pragma once

#include <string>
#include <vector>

namespace qv::test {

/// What a run of the tool left.
struct ToolRun {
    unsigned long exitCode = 0;
    std::string output;  ///< of standard output, byte for byte
    std::string errors;  ///< of standard error, byte for byte
};

/// Runs qvsata.exe with arguments in UTF-8 and waits for its end.
ToolRun RunTool(const std::vector<std::string>& arguments);

/// A file of the source tree, for an argument.
std::string SourceFile(const std::string& name);

/// Writes a file for a test to read; gives its name for an argument.
std::string WriteFile(const std::string& name, const std::string& text);

}  // namespace qv::test
