#include "tests/windows/tool/RunTool.h"

#include <windows.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "SourceTree.h"
#include "platform/windows/Handle.h"
#include "platform/windows/Text.h"

namespace qv::test {
namespace {

using windows::KernelHandle;

struct Pipe {
    KernelHandle reader;
    KernelHandle writer;

    Pipe() {
        SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
        if (!CreatePipe(reader.Receive(), writer.Receive(), &inherited, 0) ||
            !SetHandleInformation(reader.Get(), HANDLE_FLAG_INHERIT, 0)) {
            throw std::runtime_error("no pipe");
        }
    }
};

std::string ReadAll(HANDLE reader) {
    std::string text;
    std::array<char, 4096> buffer{};
    DWORD read = 0;
    while (ReadFile(reader, buffer.data(), static_cast<DWORD>(buffer.size()), &read, nullptr) &&
           read != 0) {
        text.append(buffer.data(), read);
    }
    return text;
}

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

}  // namespace

ToolRun RunTool(const std::vector<std::string>& arguments) {
    std::wstring command = Quoted(QV_TOOL);
    for (const std::string& argument : arguments) {
        command += L' ' + Quoted(argument);
    }
    Pipe output;
    Pipe errors;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output.writer.Get();
    startup.hStdError = errors.writer.Get();
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                        &startup, &started)) {
        throw std::runtime_error("the tool does not start");
    }
    const KernelHandle process(started.hProcess);
    const KernelHandle thread(started.hThread);
    output.writer.Reset();
    errors.writer.Reset();
    ToolRun run;
    std::thread errorReader([&] { run.errors = ReadAll(errors.reader.Get()); });
    run.output = ReadAll(output.reader.Get());
    errorReader.join();
    WaitForSingleObject(process.Get(), INFINITE);
    GetExitCodeProcess(process.Get(), &run.exitCode);
    return run;
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
