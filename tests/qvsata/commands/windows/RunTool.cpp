#include "tests/qvsata/commands/windows/RunTool.h"

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>
#include <thread>

#include "SourceTree.h"
#include "platform/windows/Handle.h"
#include "platform/windows/Text.h"
#include "tests/qvsata/commands/windows/Pipe.h"
#include "tests/qvsata/commands/windows/PseudoConsole.h"
#include "tests/qvsata/commands/windows/Reading.h"

namespace qv::test {
namespace {

using windows::KernelHandle;

/// Returns an argument quoted by the C runtime's rules.
std::wstring Quoted(const std::string& argument) {
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t character : windows::ToWide(argument, CP_UTF8)) {
        if (character == L'"') {
            quoted.append(backslashes + 1, L'\\');
        }
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        quoted += character;
    }
    quoted.append(backslashes, L'\\');
    return quoted + L'"';
}

/// Starts a process that inherits handles. Returns whether it did.
bool Start(std::wstring& command, STARTUPINFOEXW& startup, PROCESS_INFORMATION& started) {
    // Rarely, Wine ends a new process before its program begins.
    for (int attempt = 1; attempt <= 3; ++attempt) {
        if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE,
                           EXTENDED_STARTUPINFO_PRESENT, nullptr, nullptr, &startup.StartupInfo,
                           &started)) {
            return true;
        }
        if (GetLastError() != ERROR_INTERNAL_ERROR) {
            break;
        }
    }
    return false;
}

/// A process of the tool, with its standard output and error.
class ToolProcess {
public:
    /// `console`: the console of the process, which it must not outlive, and the destination of its
    /// standard output if that is not redirected.
    ToolProcess(const char* tool, const std::vector<std::string>& arguments,
                const PseudoConsole* console = nullptr, Output destination = Output::redirected) {
        std::wstring command = Quoted(tool);
        for (const std::string& argument : arguments) {
            command += L' ' + Quoted(argument);
        }
        Pipe output;
        Pipe errors;
        STARTUPINFOEXW startup{};
        startup.StartupInfo.cb = sizeof(startup);
        startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
        // Without a handle, output goes to the console.
        startup.StartupInfo.hStdOutput =
            destination == Output::redirected ? output.writer.Get() : nullptr;
        startup.StartupInfo.hStdError = errors.writer.Get();
        startup.lpAttributeList = console == nullptr ? nullptr : console->Attributes();
        PROCESS_INFORMATION started{};
        if (!Start(command, startup, started)) {
            throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), tool);
        }
        process_ = KernelHandle(started.hProcess);
        const KernelHandle thread(started.hThread);
        output_.emplace(std::move(output.reader));
        errors_.emplace(std::move(errors.reader));
        ender_ = std::thread(
            [this, output = std::move(output.writer), errors = std::move(errors.writer)] {
                WaitForSingleObject(process_.Get(), INFINITE);
                WriteEnd(output);
                WriteEnd(errors);
            });
    }
    ToolProcess(const ToolProcess&) = delete;
    ToolProcess& operator=(const ToolProcess&) = delete;
    ~ToolProcess() { ender_.join(); }

    Reading& Errors() { return *errors_; }

    ToolRun Finish() {
        ToolRun run;
        run.output = output_->Finish();
        run.errors = errors_->Finish();
        GetExitCodeProcess(process_.Get(), &run.exitCode);
        return run;
    }

private:
    static void WriteEnd(const KernelHandle& pipe) {
        DWORD written = 0;
        ::WriteFile(pipe.Get(), Reading::endMark.data(),
                    static_cast<DWORD>(Reading::endMark.size()), &written, nullptr);
    }

    KernelHandle process_;
    std::optional<Reading> output_;
    std::optional<Reading> errors_;
    std::thread ender_;  ///< writes the end marks when the process has ended
};

}  // namespace

ToolRun RunTool(const std::vector<std::string>& arguments) {
    return ToolProcess(QV_TOOL, arguments).Finish();
}

ToolRun RunQuickTool(const std::vector<std::string>& arguments) {
    return ToolProcess(QV_QUICK_TOOL, arguments).Finish();
}

ToolRun RunQuickToolOnConsole(const std::vector<std::string>& arguments, Output destination) {
    PseudoConsole console;
    ToolRun run = ToolProcess(QV_QUICK_TOOL, arguments, &console, destination).Finish();
    run.screen = console.Close();
    return run;
}

ToolRun InterruptQuickTool(const std::vector<std::string>& arguments, const std::string& text) {
    const PseudoConsole console;
    ToolProcess process(QV_QUICK_TOOL, arguments, &console);
    if (process.Errors().Await(text)) {
        console.PressCtrlC();
    }
    return process.Finish();
}

std::string SourceFile(const std::string& name) {
    return QV_SOURCE_DIR "/" + name;
}

std::string WriteFile(const std::string& name, const std::string& text) {
    const auto file = std::filesystem::temp_directory_path() / windows::ToWide(name, CP_UTF8);
    std::ofstream(file, std::ios::binary) << text;
    return windows::ToNarrow(file.wstring(), CP_UTF8);
}

}  // namespace qv::test
