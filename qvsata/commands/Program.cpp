#include "qvsata/commands/Program.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "qvsata/commands/Commands.h"
#include "qvsata/commands/UsageMessage.h"
#include "qvsata/session/ExitCodes.h"
#include "qvsata/session/Failure.h"
#include "qvsata/session/MachineRun.h"
#include "qvsata/system/Console.h"
#include "qvsata/system/Process.h"

namespace qv::tool {
namespace {

void AddAll(CLI::App& program) {
    // A leading slash begins a path, not an option.
    program.allow_windows_style_options(false);
    // Not -h: "-host" would be a request for help.
    program.set_help_flag("--help", "prints this help");
    program.set_version_flag("--version", "qvsata " QV_VERSION);
    program.require_subcommand(1);
    for (const Command& command : commands) {
        command.add(program);
    }
}

/// Returns how the command that the command line names reports failures.
FailureReport ReportOf(const CLI::App& program) {
    const std::vector<CLI::App*> named = program.get_subcommands();
    if (named.empty()) {
        return ReportOnErrors;
    }
    const auto all = program.get_subcommands([](const CLI::App*) { return true; });
    const auto place = std::ranges::find(all, named.front()) - all.begin();
    return commands.at(static_cast<std::size_t>(place)).report;
}

/// Runs the command. Returns the exit code, or throws what ended the command.
int Run(CLI::App& program, std::vector<std::string> arguments) {
    try {
        std::ranges::reverse(arguments);  // CLI11 takes the last one first
        program.parse(std::move(arguments));
        return 0;
    } catch (const CommandEnd& end) {
        return end.ExitCode();
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
            return program.exit(error);
        }
        return ReportOf(program)({UsageMessage(program, error) + " (see --help)", usageError});
    } catch (const std::exception& error) {
        return ReportOf(program)({error.what(), failed});
    }
}

}  // namespace

int RunCommand(std::vector<std::string> arguments) {
    CLI::App program("Plays the management service for the SATA storage provider.", "qvsata");
    AddAll(program);
    const int exitCode = Run(program, std::move(arguments));
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        return ReportOf(program)({"standard output cannot be written", failed});
    }
    return exitCode;
}

int RunProgram(int count, const char* const* arguments) {
    const Utf8Streams streams;
    return RunCommand(Arguments(count, arguments));
}

}  // namespace qv::tool
