#include "qvsata/system/Process.h"

#include <windows.h>

#include <shellapi.h>

#include "platform/windows/Text.h"

namespace qv::tool {

std::vector<std::string> Arguments(int, const char* const*) {
    // The C runtime's arguments are in the ANSI code page.
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int index = 1; index < count; ++index) {
        arguments.push_back(windows::ToNarrow(wide[index], CP_UTF8));
    }
    LocalFree(wide);
    return arguments;
}

std::filesystem::path ProgramFolder() {
    std::wstring file(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size()));
        if (length < file.size()) {
            file.resize(length);
            return std::filesystem::path(file).parent_path();
        }
        file.resize(2 * file.size());
    }
}

}  // namespace qv::tool
