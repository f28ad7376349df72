#include "qvsata/Program.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "platform/windows/Text.h"
#include "qvsata/Commands.h"

namespace qv::tool {
namespace {

constexpr int failed = 1;
constexpr int usageError = 2;

/// The arguments in UTF-8, the last one first, as CLI11 takes them, without the program's name.
std::vector<std::string> Arguments() {
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int index = count - 1; index > 0; --index) {
        arguments.push_back(windows::ToNarrow(wide[index], CP_UTF8));
    }
    LocalFree(wide);
    return arguments;
}

int Report(const std::string& message, int exitCode) {
    std::fprintf(stderr, "qvsata: %s\n", message.c_str());
    return exitCode;
}

/// Runs the command; gives the exit code.
int Run() {
    CLI::App program("Plays the management service for the SATA storage provider.", "qvsata");
    // A leading slash is the beginning of a path.
    program.allow_windows_style_options(false);
    program.set_version_flag("--version", "qvsata " QV_VERSION);
    program.require_subcommand(1);
    AddTopology(program);
    AddClasses(program);
    AddEnumerate(program);
    AddGet(program);
    AddQuery(program);
    AddAssociators(program);
    AddReferences(program);
    AddWatch(program);
    try {
        program.parse(Arguments());
        return 0;
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
            return program.exit(error);
        }
        return Report(std::string(error.what()) + " (see --help)", usageError);
    }
}

/// Bytes are written as they are, whatever standard output leads to; a console takes them as UTF-8.
class Utf8Output {
public:
    Utf8Output() : codePage_(GetConsoleOutputCP()) {
        SetConsoleOutputCP(CP_UTF8);
        _setmode(_fileno(stdout), _O_BINARY);
        _setmode(_fileno(stderr), _O_BINARY);
    }
    Utf8Output(const Utf8Output&) = delete;
    Utf8Output& operator=(const Utf8Output&) = delete;
    ~Utf8Output() {
        std::fflush(stdout);
        SetConsoleOutputCP(codePage_);
    }

private:
    UINT codePage_;
};

}  // namespace

int RunProgram() {
    const Utf8Output output;
    try {
        return Run();
    } catch (const std::exception& error) {
        return Report(error.what(), failed);
    }
}

}  // namespace qv::tool
