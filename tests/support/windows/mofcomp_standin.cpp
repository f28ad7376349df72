// mofcomp.exe for tests: Wine's own is empty. `mofcomp FILE` compiles a file up to its first error.
// Beside the program,
// - mofcomp.log gets a line for each call: the arguments, and "(removed before)" without a file;
// - mofcomp.fail, if present, names the file, without folder, of which all is compiled but which
//   ends with a failure;
// - mofcomp.repository lists the classes and instances of root\QVQ;
// - mofcomp.compiled holds what was compiled, in order: this makes the repository;
// - mofcomp.folder holds the MOF files that were in the folder of a compiled one.
// Windows undoes the steps of an installation in the reverse order, so that an action finds its
// file. Wine removes the files first. The last folder gives them back.
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

#include "qvsata/mof/MofFileReader.h"

namespace {

namespace fs = std::filesystem;
using namespace qv::service;

fs::path ProgramFolder() {
    std::wstring self(32768, L'\0');
    self.resize(GetModuleFileNameW(nullptr, self.data(), static_cast<DWORD>(self.size())));
    return fs::path(self).parent_path();
}

std::string Narrow(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::string TextOf(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

void KeepFolder(const fs::path& folder, const fs::path& kept) {
    create_directories(kept);
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() == L".mof") {
            remove(kept / entry.path().filename());
            copy_file(entry, kept / entry.path().filename());
        }
    }
}

// Returns whether there was no error. What is before an error is compiled.
bool Compile(const fs::path& file, Namespaces& namespaces) {
    const std::string name = Narrow(file.filename());
    std::vector<PendingReference> references;
    try {
        ApplyMof(ParseMof(TextOf(file), name), name, namespaces, references);
        return true;
    } catch (const MofError&) {
        return false;
    }
}

void List(const ClassRepository& repository, const fs::path& file) {
    std::set<std::string> lines;
    for (const ClassDefinition& definition : repository.Classes()) {
        lines.insert(definition.name);
    }
    for (const InstanceDefinition& instance : repository.Instances()) {
        lines.insert(repository.RelativePath(instance));
    }
    std::ofstream out(file, std::ios::binary);
    for (const std::string& line : lines) {
        out << line << '\n';
    }
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    const fs::path beside = ProgramFolder();
    fs::path file = arguments[count - 1];
    const bool isThere = exists(file);
    std::ofstream log(beside / "mofcomp.log", std::ios::app | std::ios::binary);
    for (int index = 1; index < count; ++index) {
        log << Narrow(arguments[index]) << (index + 1 < count ? " " : "");
    }
    log << (isThere ? "\n" : " (removed before)\n");

    if (isThere) {
        KeepFolder(file.parent_path(), beside / "mofcomp.folder");
    } else {
        file = beside / "mofcomp.folder" / file.filename();
    }
    const fs::path compiled = beside / "mofcomp.compiled";
    create_directories(compiled);
    Namespaces namespaces;
    std::size_t number = 10000;
    while (exists(compiled / std::to_string(number))) {
        Compile(compiled / std::to_string(number++), namespaces);
    }
    if (!exists(file)) {
        return 1;
    }
    copy_file(file, compiled / std::to_string(number));
    const bool succeeds = Compile(file, namespaces);
    List(namespaces.Of("root\\QVQ"), beside / "mofcomp.repository");

    std::string failing;
    std::getline(std::ifstream(beside / "mofcomp.fail"), failing);
    return succeeds && Narrow(file.filename()) != failing ? 0 : 3;
}
