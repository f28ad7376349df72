#include "qvsata/commands/Program.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "qvsata/commands/Commands.h"
#include "qvsata/commands/UsageMessage.h"
#include "qvsata/session/ExitCodes.h"
#include "qvsata/session/MachineRun.h"
#include "qvsata/system/Console.h"
#include "qvsata/system/Process.h"

namespace qv::tool {
namespace {

int Report(const std::string& message, int exitCode) {
    WriteErrorLine(message);
    return exitCode;
}

/// Runs the command; returns the exit code.
int Run(std::vector<std::string> arguments) {
    CLI::App program("Plays the management service for the SATA storage provider.", "qvsata");
    // A leading slash begins a path, not an option.
    program.allow_windows_style_options(false);
    // Not -h: "-host" would be a request for help.
    program.set_help_flag("--help", "prints this help");
    program.set_version_flag("--version", "qvsata " QV_VERSION);
    program.require_subcommand(1);
    for (const auto& add : commands) {
        add(program);
    }
    try {
        std::ranges::reverse(arguments);  // CLI11 takes the last one first
        program.parse(std::move(arguments));
        return 0;
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
            return program.exit(error);
        }
        return Report(UsageMessage(program, error) + " (see --help)", usageError);
    }
}

}  // namespace

int RunCommand(std::vector<std::string> arguments) {
    int exitCode = 0;
    try {
        exitCode = Run(std::move(arguments));
    } catch (const CommandEnd& end) {
        exitCode = end.ExitCode();
    } catch (const std::exception& error) {
        return Report(error.what(), failed);
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        return Report("standard output cannot be written", failed);
    }
    return exitCode;
}

int RunProgram(int count, const char* const* arguments) {
    const Utf8Streams streams;
    return RunCommand(Arguments(count, arguments));
}

}  // namespace qv::tool
