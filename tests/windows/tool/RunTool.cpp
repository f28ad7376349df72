#include "tests/windows/tool/RunTool.h"

#include <windows.h>

#include <array>
#include <condition_variable>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <thread>
#include <utility>

#include "SourceTree.h"
#include "platform/windows/Handle.h"
#include "platform/windows/Text.h"
#include "tests/windows/tool/Pipe.h"
#include "tests/windows/tool/PseudoConsole.h"

namespace qv::test {
namespace {

using windows::KernelHandle;

/// Reads what a process writes, on a thread of its own.
class Reading {
public:
    explicit Reading(Pipe& pipe) : reader_(std::move(pipe.reader)), thread_([this] { Run(); }) {
        pipe.writer.Reset();
    }

    /// Waits until `text` was read; false when all was read without it.
    bool Await(const std::string& text) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return done_ || text_.find(text) != std::string::npos; });
        return text_.find(text) != std::string::npos;
    }

    /// All of it, at the end.
    std::string Finish() {
        thread_.join();
        return text_;
    }

private:
    void Run() {
        std::array<char, 4096> buffer{};
        DWORD read = 0;
        while (ReadFile(reader_.Get(), buffer.data(), static_cast<DWORD>(buffer.size()), &read,
                        nullptr) &&
               read != 0) {
            const std::lock_guard lock(mutex_);
            text_.append(buffer.data(), read);
            changed_.notify_all();
        }
        const std::lock_guard lock(mutex_);
        done_ = true;
        changed_.notify_all();
    }

    KernelHandle reader_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::string text_;
    bool done_ = false;
    std::thread thread_;
};

/// An argument as the C runtime's rules have it on a command line.
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

/// A process of the tool whose standard output and error are read.
class ToolProcess {
public:
    /// `console`: the one that the process is attached to, which outlives it.
    ToolProcess(const char* tool, const std::vector<std::string>& arguments,
                const PseudoConsole* console = nullptr) {
        std::wstring command = Quoted(tool);
        for (const std::string& argument : arguments) {
            command += L' ' + Quoted(argument);
        }
        Pipe output;
        Pipe errors;
        STARTUPINFOEXW startup{};
        startup.StartupInfo.cb = sizeof(startup);
        startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
        startup.StartupInfo.hStdOutput = output.writer.Get();
        startup.StartupInfo.hStdError = errors.writer.Get();
        startup.lpAttributeList = console == nullptr ? nullptr : console->Attributes();
        PROCESS_INFORMATION started{};
        if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE,
                            EXTENDED_STARTUPINFO_PRESENT, nullptr, nullptr, &startup.StartupInfo,
                            &started)) {
            throw std::runtime_error("the tool does not start");
        }
        process_ = KernelHandle(started.hProcess);
        const KernelHandle thread(started.hThread);
        output_.emplace(output);
        errors_.emplace(errors);
    }

    Reading& Errors() { return *errors_; }

    ToolRun Finish() {
        ToolRun run;
        run.output = output_->Finish();
        run.errors = errors_->Finish();
        WaitForSingleObject(process_.Get(), INFINITE);
        GetExitCodeProcess(process_.Get(), &run.exitCode);
        return run;
    }

private:
    KernelHandle process_;
    std::optional<Reading> output_;
    std::optional<Reading> errors_;
};

}  // namespace

ToolRun RunTool(const std::vector<std::string>& arguments) {
    return ToolProcess(QV_TOOL, arguments).Finish();
}

ToolRun RunQuickTool(const std::vector<std::string>& arguments) {
    return ToolProcess(QV_QUICK_TOOL, arguments).Finish();
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
