// mofcomp.exe for tests: Wine's own is empty. It compiles nothing. Beside the program,
//   mofcomp.log   gets a line for each call: the arguments, and "(no file)" if the last one names
//   none mofcomp.fail  if present, names the file (without folder) whose compilation fails
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

std::filesystem::path Beside(const std::filesystem::path& program, const wchar_t* name) {
    return program.parent_path() / name;
}

std::string Narrow(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    std::wstring self(32768, L'\0');
    self.resize(GetModuleFileNameW(nullptr, self.data(), static_cast<DWORD>(self.size())));
    const std::filesystem::path file = arguments[count - 1];
    std::ofstream log(Beside(self, L"mofcomp.log"), std::ios::app | std::ios::binary);
    for (int index = 1; index < count; ++index) {
        log << Narrow(arguments[index]) << (index + 1 < count ? " " : "");
    }
    log << (exists(file) ? "\n" : " (no file)\n");

    std::string failing;
    std::getline(std::ifstream(Beside(self, L"mofcomp.fail")), failing);
    return exists(file) && Narrow(file.filename()) != failing ? 0 : 1;
}
