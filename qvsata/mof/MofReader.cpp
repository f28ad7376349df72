#include "qvsata/mof/MofReader.h"

#include <array>
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

std::vector<MofSource> LoadMofFiles(std::span<const std::string> paths, std::uintmax_t mostBytes) {
    std::vector<MofSource> files;
    for (const std::string& path : paths) {
        try {
            const std::u8string utf8(path.begin(), path.end());
            files.push_back({path, ReadFileBytes(utf8, mostBytes)});
        } catch (const UnreadableFile& why) {
            throw MofError(path, why.what());
        }
    }
    return files;
}

void ReadMofFiles(std::span<const std::string> paths, Namespaces& namespaces) {
    ReadMof(LoadMofFiles(paths), namespaces);
}

}  // namespace qv::service
