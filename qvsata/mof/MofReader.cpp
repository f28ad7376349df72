#include "qvsata/mof/MofReader.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

#include "qvsata/mof/MofFileReader.h"

namespace qv::service {

void ReadMof(std::span<const MofSource> files, Namespaces& namespaces) {
    Namespaces changed = namespaces;
    std::vector<PendingReference> references;
    for (const MofSource& file : files) {
        ApplyMof(ParseMof(file.text, file.fileName), file.fileName, changed, references);
    }
    for (const PendingReference& reference : references) {
        CheckReference(reference, changed.Of(reference.namespacePath));
    }
    namespaces = std::move(changed);
}

void ReadMof(std::string_view text, std::string_view fileName, Namespaces& namespaces) {
    const std::array files{MofSource{std::string(fileName), std::string(text)}};
    ReadMof(files, namespaces);
}

std::vector<MofSource> LoadMofFiles(std::span<const std::string> paths) {
    std::vector<MofSource> files;
    for (const std::string& path : paths) {
        const std::u8string utf8(path.begin(), path.end());
        std::ifstream stream(std::filesystem::path(utf8), std::ios::binary);
        if (!stream) {
            throw MofError(path, {}, "cannot be read");
        }
        std::ostringstream text;
        text << stream.rdbuf();
        files.push_back({path, text.str()});
    }
    return files;
}

void ReadMofFiles(std::span<const std::string> paths, Namespaces& namespaces) {
    ReadMof(LoadMofFiles(paths), namespaces);
}

}  // namespace qv::service
