#pragma once

#include <string>
#include <vector>

namespace qv::test {

/// The results of a run of the tool.
struct ToolRun {
    unsigned long exitCode = 0;
    std::string output;  ///< standard output, byte for byte
    std::string errors;  ///< standard error, byte for byte
    std::string screen;  ///< its console: text and escape sequences
};

/// Runs qvsata.exe with arguments in UTF-8 and waits for its end.
ToolRun RunTool(const std::vector<std::string>& arguments);

/// As RunTool, without the pauses of the provider's monitor.
ToolRun RunQuickTool(const std::vector<std::string>& arguments);

/// Where the tool's output goes.
enum class Output { console, redirected };

/// Runs the quick tool on a console of its own and waits for its end.
ToolRun RunQuickToolOnConsole(const std::vector<std::string>& arguments, Output destination);

/// Runs the quick tool on a console of its own; presses Ctrl+C when its standard error contains
/// `text`.
ToolRun InterruptQuickTool(const std::vector<std::string>& arguments, const std::string& text);

/// The recording of a host whose classes are all without rows.
inline constexpr const char* hostWithoutStorage =
    R"({"computer": {"netbios": "N"}, "namespaces": {"root\\CIMv2": {"Win32_DiskDrive": [],
        "Win32_IDEController": [], "Win32_IDEControllerDevice": [], "Win32_PhysicalMedia": [],
        "Win32_DiskDriveToDiskPartition": [], "Win32_DiskPartition": []},
        "root\\wmi": {"MSStorageDriver_FailurePredictStatus": []}}})";

/// Returns the path of a file of the source tree, for an argument.
std::string SourceFile(const std::string& name);

/// Writes a file for a test to read; returns its path for an argument.
std::string WriteFile(const std::string& name, const std::string& text);

}  // namespace qv::test
