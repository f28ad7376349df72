#include "qvsata/registration/windows/RunProgram.h"

#include <windows.h>

#include <array>
#include <system_error>

#include "platform/windows/Handle.h"
#include "platform/windows/Text.h"

namespace qv::tool {
namespace {

using windows::FileHandle;
using windows::KernelHandle;

/// Returns a handle that a started program inherits.
FileHandle Open(const wchar_t* file, DWORD access, DWORD disposition, DWORD flags) {
    SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
    return FileHandle(CreateFileW(file, access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                                  disposition, flags, nullptr));
}

/// A file rather than a pipe: it needs no thread that reads while the program runs.
FileHandle OutputFile() {
    std::array<wchar_t, MAX_PATH + 1> folder{};
    std::array<wchar_t, MAX_PATH + 1> file{};
    if (GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()) == 0 ||
        GetTempFileNameW(folder.data(), L"qv", 0, file.data()) == 0) {
        return {};
    }
    return Open(file.data(), GENERIC_READ | GENERIC_WRITE, CREATE_ALWAYS,
                FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE);
}

std::string ContentOf(const FileHandle& file) {
    std::string content(GetFileSize(file.Get(), nullptr), '\0');
    DWORD read = 0;
    SetFilePointer(file.Get(), 0, nullptr, FILE_BEGIN);
    ReadFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &read, nullptr);
    content.resize(read);
    // Console programs write in the code page of the console.
    return windows::ToNarrow(windows::ToWide(content, CP_OEMCP), CP_UTF8);
}

std::string WhyNotStarted(const std::filesystem::path& program, DWORD error) {
    return windows::ToNarrow(program.native(), CP_UTF8) + ": error " + std::to_string(error) +
           ": " + std::system_category().message(static_cast<int>(error));
}

}  // namespace

Compilation RunProgram(const std::filesystem::path& program,
                       const std::filesystem::path& argument) {
    const FileHandle input = Open(L"NUL", GENERIC_READ, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
    const FileHandle output = OutputFile();
    if (!output) {
        return {WhyNotStarted(program, GetLastError())};
    }
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = input.Get();
    startup.hStdOutput = output.Get();
    startup.hStdError = output.Get();
    // A file name has no quotation marks.
    std::wstring command = L"\"" + program.native() + L"\" \"" + argument.native() + L"\"";
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW,
                        nullptr, nullptr, &startup, &started)) {
        return {WhyNotStarted(program, GetLastError())};
    }
    const KernelHandle process(started.hProcess);
    const KernelHandle thread(started.hThread);
    WaitForSingleObject(process.Get(), INFINITE);
    DWORD exitCode = 0;
    GetExitCodeProcess(process.Get(), &exitCode);
    return {{}, exitCode, ContentOf(output)};
}

}  // namespace qv::tool
