#pragma once

#include <string>
#include <vector>

namespace qv::test {

/// What a run of the tool left.
struct ToolRun {
    unsigned long exitCode = 0;
    std::string output;  ///< of standard output, byte for byte
    std::string errors;  ///< of standard error, byte for byte
    std::string screen;  ///< of its console: the text and the escape sequences of its colours
};

/// Runs qvsata.exe with arguments in UTF-8 and waits for its end.
ToolRun RunTool(const std::vector<std::string>& arguments);

/// The same for the tool without the pauses of the provider's monitor.
ToolRun RunQuickTool(const std::vector<std::string>& arguments);

/// Where the tool writes to.
enum class Output { console, redirected };

/// Runs the quick tool on a console of its own, and waits for its end.
ToolRun RunQuickToolOnConsole(const std::vector<std::string>& arguments, Output destination);

/// Runs it on a console of its own, and presses Ctrl+C once its standard error says `text`.
ToolRun InterruptQuickTool(const std::vector<std::string>& arguments, const std::string& text);

/// A file of the source tree, for an argument.
std::string SourceFile(const std::string& name);

/// Writes a file for a test to read; gives its name for an argument.
std::string WriteFile(const std::string& name, const std::string& text);

}  // namespace qv::test
